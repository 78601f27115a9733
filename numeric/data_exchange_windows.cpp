#include "orv/data_exchange.h"

#include "localization/translate.h"
#include "orv/messages.h"
#include "orv/numbers.h"
#include "platform/windows/windows.h"
#include "text/views.h"

namespace {

constexpr int kNoListLength = 255;  // of a list whose length the system does not tell
constexpr int kLongestNumber = 31;
constexpr unsigned kInvalidRealNumber = 61713;  // the framework's text in the host's string table

CString textOfControl(HWND control, int most) {
    CString text;
    const int length = GetWindowTextW(control, text.GetBufferSetLength(most), most + 1);
    text.ReleaseBufferSetLength(length > 0 ? length : 0);
    return text;
}

CString textOfControl(HWND control) {
    const int length = GetWindowTextLengthW(control);
    return textOfControl(control, length > 0 ? length : kNoListLength);
}

void save(CDataExchange& exchange, HWND control, CNumString& value, int (CNumString::*validate)()) {
    value = textOfControl(control);
    if ((value.*validate)() == 0) exchange.Fail();
}

void exchangeEdit(CDataExchange& exchange, int id, CNumString& value, int (CNumString::*validate)()) {
    const HWND control = exchange.PrepareEditCtrl(id);
    if (exchange.m_bSaveAndValidate) {
        save(exchange, control, value, validate);
    } else {
        SetWindowTextW(control, value.GetText());
    }
}

void exchangeCombo(CDataExchange& exchange, int id, CNumString& value, int (CNumString::*validate)()) {
    const HWND control = exchange.PrepareCtrl(id);
    if (exchange.m_bSaveAndValidate) {
        save(exchange, control, value, validate);
        return;
    }
    const auto text = reinterpret_cast<LPARAM>(value.GetText().GetString());
    const LRESULT entry = SendMessageW(control, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), text);
    if (entry != CB_ERR) SendMessageW(control, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    SetWindowTextW(control, value.GetText());
}

/// In the control itself, so that a longer text loses nothing; the selection stays.
void replaceFirstComma(HWND control, const CString& text) {
    const int comma = text.Find(L',');
    if (comma < 0) return;
    DWORD first = 0;
    DWORD last = 0;
    SendMessageW(control, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    SendMessageW(control, EM_SETSEL, static_cast<WPARAM>(comma), comma + 1);
    SendMessageW(control, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"."));
    SendMessageW(control, EM_SETSEL, first, static_cast<LPARAM>(last));
}

CString invalidNumberText() {
    const wchar_t* text = nullptr;
    const int length = LoadStringW(GetModuleHandleW(nullptr), kInvalidRealNumber, reinterpret_cast<wchar_t*>(&text), 0);
    return length > 0 ? CString(text, length) : orv::translate(L"Bitte eine Zahl eingeben.");
}

}  // namespace

// ---- The framework's class ----

CUserException::~CUserException() = default;

CDataExchange::CDataExchange(HWND dialog, bool saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_hDlgWnd(dialog) {}

HWND CDataExchange::PrepareCtrl(int id) {
    const HWND control = GetDlgItem(m_hDlgWnd, id);
    if (control == nullptr) orv::throwInvalidArgument();
    m_hWndLastControl = control;
    m_bEditLastControl = false;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int id) {
    const HWND control = PrepareCtrl(id);
    m_bEditLastControl = true;
    return control;
}

void CDataExchange::Fail() {
    if (m_bSaveAndValidate && m_hWndLastControl != nullptr) {
        SetFocus(m_hWndLastControl);
        if (m_bEditLastControl) SendMessageW(m_hWndLastControl, EM_SETSEL, 0, -1);
    }
    static CUserException exception;
    throw &exception;
}

// ---- The exchange functions ----

void DDX_NumfString(CDataExchange* exchange, int id, CNumString& value) {
    exchangeEdit(*exchange, id, value, &CNumString::ValidateFloat);
}

void DDX_NumiString(CDataExchange* exchange, int id, CNumString& value) {
    exchangeEdit(*exchange, id, value, &CNumString::ValidateInt);
}

void DDX_CBNumfString(CDataExchange* exchange, int id, CNumString& value) {
    exchangeCombo(*exchange, id, value, &CNumString::ValidateFloat);
}

void DDX_CBNumiString(CDataExchange* exchange, int id, CNumString& value) {
    exchangeCombo(*exchange, id, value, &CNumString::ValidateInt);
}

void DDX_BFText(CDataExchange* exchange, int id, double& value) {
    const HWND control = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        constexpr int kDigits = 6;
        CString text;
        text.Format(L"%.*g", kDigits, value);
        SetWindowTextW(control, text);
        return;
    }
    CString text = textOfControl(control, kLongestNumber);
    replaceFirstComma(control, text);
    const int comma = text.Find(L',');
    if (comma >= 0) text.SetAt(comma, L'.');
    text.Trim();
    const orv::ParsedDouble parsed = orv::parseDouble(orv::viewOf(text));
    if (parsed.length == 0 || parsed.length != orv::viewOf(text).size()) {
        orv::showMessage(orv::MessageKind::kWarning, orv::translate(L"Fehler"), invalidNumberText());
        exchange->Fail();
    }
    value = parsed.value;
}

void DDX_BFText(CDataExchange* exchange, int id, float& value) {
    double wide = static_cast<double>(value);
    DDX_BFText(exchange, id, wide);
    value = static_cast<float>(wide);
}

void DDX_TextEx(CDataExchange* exchange, int id, double& value) { DDX_BFText(exchange, id, value); }

void DDX_TextEx(CDataExchange* exchange, int id, float& value) { DDX_BFText(exchange, id, value); }
