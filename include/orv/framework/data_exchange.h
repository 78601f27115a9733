// CDataExchange: one exchange between the controls of a dialog and the variables of a program. Windows alone.
//
// The part of the framework's class that exchange functions use. The dialog is its window handle.
#pragma once

#include "orv/export.h"
#include "orv/framework/exceptions.h"

struct HWND__;

/// Thrown by CDataExchange::Fail, by pointer: the user has been told, and the exchange is given up.
class ORV_API CUserException : public CException {
  public:
    ~CUserException() override;
};

class ORV_API CDataExchange {
  public:
    /// `saveAndValidate`: from the controls to the variables; else the other way.
    CDataExchange(HWND__* dialog, bool saveAndValidate);

    bool m_bSaveAndValidate;
    HWND__* m_hDlgWnd;
    HWND__* m_hWndLastControl = nullptr;
    bool m_bEditLastControl = false;

    /// The control of this id, to which a failure gives the focus back. Throws CInvalidArgException if there is none.
    HWND__* PrepareCtrl(int id);
    /// The same; its text is selected as well.
    HWND__* PrepareEditCtrl(int id);
    /// Puts the focus on the last control when saving, and throws CUserException.
    [[noreturn]] void Fail();
};
