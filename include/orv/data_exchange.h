// Exchange of numbers between the controls of a dialog and variables. Windows alone.
//
// Saving (CDataExchange::m_bSaveAndValidate) takes the control's text; one that is no number is reported, the focus
// goes back to the control and the exchange fails (CDataExchange::Fail). Loading writes the variable into the control.
#pragma once

#include "orv/export.h"
#include "orv/framework/data_exchange.h"
#include "orv/numeric_strings.h"

/// An edit field and a number, or with the i an integer, by ValidateFloat and ValidateInt.
ORV_API void DDX_NumfString(CDataExchange* exchange, int id, CNumString& value);
ORV_API void DDX_NumiString(CDataExchange* exchange, int id, CNumString& value);

/// A combo box. Loading selects the entry that equals the text, if there is one, and sets the text.
ORV_API void DDX_CBNumfString(CDataExchange* exchange, int id, CNumString& value);
ORV_API void DDX_CBNumiString(CDataExchange* exchange, int id, CNumString& value);

/// An edit field and a plain number of at most 31 characters. Saving makes a "." of the first "," in the control too,
/// and reports what is no number by the host's text 61713. Loading writes six significant digits.
ORV_API void DDX_BFText(CDataExchange* exchange, int id, float& value);
ORV_API void DDX_BFText(CDataExchange* exchange, int id, double& value);
ORV_API void DDX_TextEx(CDataExchange* exchange, int id, float& value);
ORV_API void DDX_TextEx(CDataExchange* exchange, int id, double& value);
