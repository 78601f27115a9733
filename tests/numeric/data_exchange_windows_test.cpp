// Numbers between real controls and variables.
#include "orv/data_exchange.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "orv/messages.h"
#include "support/text.h"

namespace {

constexpr int kEdit = 101;
constexpr int kOther = 102;
constexpr int kCombo = 103;
constexpr int kList = 104;

int shown = 0;
CString lastShown;

class DataExchange : public testing::Test {
  protected:
    DataExchange() {
        shown = 0;
        orv::setMessagePresenter([](orv::MessageKind, const wchar_t*, const wchar_t* text) {
            ++shown;
            lastShown = text;
        });
        window = CreateWindowExW(0, L"#32770", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr,
                                 nullptr, nullptr);
        child(L"Edit", kEdit, 0);
        child(L"Edit", kOther, 0);
        child(L"ComboBox", kCombo, CBS_DROPDOWN);
        child(L"ComboBox", kList, CBS_DROPDOWNLIST);
        for (const int id : {kCombo, kList}) {
            for (const wchar_t* entry : {L"1,50", L"1,5", L"2"})
                SendDlgItemMessageW(window, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
        }
    }
    ~DataExchange() override {
        DestroyWindow(window);
        orv::setMessagePresenter(nullptr);
        CNumString::AnzahlFehler();
    }

    void child(const wchar_t* kind, int id, DWORD style) const {
        CreateWindowExW(0, kind, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 100, 100, window,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
    void put(int id, const wchar_t* text) const { SetDlgItemTextW(window, id, text); }
    CString get(int id) const {
        wchar_t text[100] = {};
        GetDlgItemTextW(window, id, text, 100);
        return text;
    }
    /// Whether the exchange fails as it has to: by a user exception, with the focus on the control.
    template <class Value>
    bool fails(void (*function)(CDataExchange*, int, Value&), int id, Value& value) const {
        SetFocus(GetDlgItem(window, kOther));
        CDataExchange saving(window, true);
        try {
            function(&saving, id, value);
        } catch (CUserException* exception) {
            exception->Delete();
            EXPECT_EQ(GetDlgItem(window, id), GetFocus());
            return true;
        }
        EXPECT_EQ(GetDlgItem(window, kOther), GetFocus());
        return false;
    }

    HWND window = nullptr;
};

TEST_F(DataExchange, EditFieldsHoldNumericStrings) {
    CNumString value;
    put(kEdit, L"  3,5*2 ");
    EXPECT_FALSE(fails(DDX_NumfString, kEdit, value));
    EXPECT_TEXT(L"3,5*2", value.GetText());
    EXPECT_EQ(7, value.Value());
    put(kEdit, L"");
    EXPECT_FALSE(fails(DDX_NumiString, kEdit, value));
    put(kEdit, L"2 3");
    EXPECT_TRUE(fails(DDX_NumfString, kEdit, value));
    EXPECT_TRUE(fails(DDX_NumiString, kEdit, value));
    EXPECT_EQ(2, shown);
    value = L"1/3";
    CDataExchange loading(window, false);
    DDX_NumfString(&loading, kEdit, value);
    EXPECT_TEXT(L"1/3", get(kEdit));
    EXPECT_THROW(
        {
            try {
                DDX_NumfString(&loading, 999, value);
            } catch (CInvalidArgException* exception) {
                exception->Delete();
                throw 1;
            }
        },
        int);
}

TEST_F(DataExchange, ComboBoxesSelectTheirEntry) {
    CNumString value;
    CDataExchange loading(window, false);
    value = L"1,5";
    DDX_CBNumfString(&loading, kCombo, value);
    DDX_CBNumiString(&loading, kList, value);
    EXPECT_EQ(1, SendDlgItemMessageW(window, kCombo, CB_GETCURSEL, 0, 0));
    EXPECT_EQ(1, SendDlgItemMessageW(window, kList, CB_GETCURSEL, 0, 0));
    EXPECT_TEXT(L"1,5", get(kCombo));
    value = L"77";
    DDX_CBNumfString(&loading, kCombo, value);
    EXPECT_TEXT(L"77", get(kCombo));
    value = L"";
    EXPECT_FALSE(fails(DDX_CBNumfString, kCombo, value));
    EXPECT_TEXT(L"77", value.GetText());
    EXPECT_FALSE(fails(DDX_CBNumiString, kList, value));
    EXPECT_TEXT(L"1,5", value.GetText());
}

TEST_F(DataExchange, PlainNumbersTakeAComma) {
    double value = 0;
    put(kEdit, L" -1,25");
    SendDlgItemMessageW(window, kEdit, EM_SETSEL, 1, 4);
    EXPECT_FALSE(fails<double>(DDX_BFText, kEdit, value));
    EXPECT_EQ(-1.25, value);
    EXPECT_TEXT(L" -1.25", get(kEdit));
    EXPECT_EQ(MAKELONG(1, 4), SendDlgItemMessageW(window, kEdit, EM_GETSEL, 0, 0));
    for (const wchar_t* bad : {L"", L"abc", L"1,2,3", L"2*3", L"1 2"}) {
        put(kEdit, bad);
        EXPECT_TRUE(fails<double>(DDX_TextEx, kEdit, value)) << utf8(bad);
    }
    EXPECT_EQ(5, shown);
    EXPECT_TEXT(L"Bitte eine Zahl eingeben.", lastShown);
    EXPECT_EQ(-1.25, value);
    put(kEdit, L"12345678901234567890123456789012,5");
    EXPECT_FALSE(fails<double>(DDX_BFText, kEdit, value));
    EXPECT_DOUBLE_EQ(1.234567890123456789012345678901e30, value);
    EXPECT_TEXT(L"12345678901234567890123456789012,5", get(kEdit));
    CDataExchange loading(window, false);
    float narrow = 1234.5678F;
    DDX_TextEx(&loading, kEdit, narrow);
    EXPECT_TEXT(L"1234.57", get(kEdit));
    EXPECT_FALSE(fails<float>(DDX_BFText, kEdit, narrow));
    EXPECT_EQ(1234.57F, narrow);
}

}  // namespace
