// Texts in the current language, the choice of languages, the modules of a process.
#include "orv/translation.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "support/temp_folder.h"
#include "support/text.h"

namespace {

class Translation : public testing::Test {
  protected:
    Translation() {
        folder.put("wordbook.EN",
                   "@Einheit@Meter <*> metre\nRohr <*> pipe\nStra\xDF"
                   "e <*> road\nL\xE4nge: <*> length");
        folder.put("wordbook.FR", "Rohr <*> tuyau");
        module.ScanDirectory(TempFolder::asText(folder.path()));
    }
    ~Translation() override {
        orv::setRegionToken(L"");
        orv::collectMissedTexts(false);
        CTranslationManager::Release();
    }

    TempFolder folder;
    CTranslationModule module{nullptr};
};

TEST_F(Translation, TextsFollowTheirSteps) {
    struct Row {
        const wchar_t *text, *german, *swiss, *english, *french;
    };
    const Row rows[] = {
        {L"@Einheit@Meter", L"Meter", L"Meter", L"metre", L"metre"},
        {L"@Einheit@Straße", L"Straße", L"Strasse", L"Straße", L"Straße"},
        {L"Straße", L"Straße", L"Strasse", L"road", L"road"},
        {L"Rohr", L"Rohr", L"Rohr", L"pipe", L"tuyau"},
        {L"≈Rohr", L"Rohr", L"Rohr", L"pipe", L"tuyau"},
        {L"≈≈Rohr", L"≈Rohr", L"≈Rohr", L"≈Rohr", L"≈Rohr"},
        {L"rohr", L"rohr", L"rohr", L"rohr", L"rohr"},
        {L"Länge:", L"Länge:", L"Länge:", L"length:", L"length:"},
        {L"@Teil", L"@Teil", L"@Teil", L"@Teil", L"@Teil"},
        {L"@@x@y", L"x@y", L"x@y", L"x@y", L"x@y"},
        {L"a@b@c", L"a@b@c", L"a@b@c", L"a@b@c", L"a@b@c"},
        {L"@a@", L"", L"", L"", L""},
        {L"≈", L"", L"", L"", L""},
        {L"", L"", L"", L"", L""},
    };
    const auto inLanguage = [&](const wchar_t* language, const wchar_t* Row::*expected) {
        module.SetLanguage(language);
        for (const Row& row : rows) {
            SCOPED_TRACE(utf8(row.text));
            const CString first = module.TranslateText(row.text);
            EXPECT_TEXT(row.*expected, first);
            EXPECT_EQ(first.GetString(), module.TranslateText(row.text).GetString()) << "the same characters again";
            CString changed = row.text;
            EXPECT_EQ(first != row.text, module.ChangeText(changed));
            EXPECT_TEXT(first, changed);
        }
    };
    EXPECT_TRUE(module.IsGermanActive());
    inLanguage(L"de", &Row::german);
    orv::setRegionToken(L"CHE");
    inLanguage(L"DE", &Row::swiss);
    orv::setRegionToken(L"AUT");
    inLanguage(L"en", &Row::english);
    EXPECT_FALSE(module.IsGermanActive());
    inLanguage(L"Fr", &Row::french);
    EXPECT_TEXT(L"road", module.TranslateText("Stra\xDF"
                                              "e"));
    EXPECT_TEXT(L"€\x81", module.TranslateText("\x80\x81"));
    EXPECT_TEXT(L"", module.TranslateText(static_cast<const char*>(nullptr)));
    EXPECT_TEXT(L"", module.TranslateText(static_cast<const wchar_t*>(nullptr)));
}

TEST_F(Translation, LanguagesAreChosenLikeThis) {
    EXPECT_TEXT(L"FR", module.FindBestLanguage(L"fr"));
    EXPECT_TEXT(L"DE", module.FindBestLanguage(L"De"));
    module.SetLanguage(L"fr");
    module.SetLanguage(L"");
    EXPECT_TEXT(L"FR", module.GetLanguage());
    const CTranslationModule empty(nullptr);
    EXPECT_TEXT(L"DE", empty.FindBestLanguage(L"FR"));
}

TEST_F(Translation, MissedTextsAreCounted) {
    module.SetLanguage(L"FR");
    module.TranslateText(L"before");
    orv::collectMissedTexts(true);
    for (const wchar_t* text : {L"Ventil", L"Rohr", L"Ventil", L"Straße", L"≈Ventil", L"@x@Gas"})
        module.TranslateText(text);
    module.SetLanguage(L"DE");
    module.TranslateText(L"Ventil");
    CArray<orv::MissedText, const orv::MissedText&> missed;
    orv::missedTexts(missed);
    ASSERT_EQ(2, missed.GetSize());
    EXPECT_TEXT(L"Ventil", missed[0].text);
    EXPECT_TEXT(L"FR", missed[0].language);
    EXPECT_EQ(3U, missed[0].count);
    EXPECT_TEXT(L"@x@Gas", missed[1].text);
}

TEST_F(Translation, TheManagerSpeaksForAllModules) {
    CTranslationManager& manager = CTranslationManager::GetInstance();
    int one = 0;
    int two = 0;
    const auto first = reinterpret_cast<orv::ModuleHandle>(&one);
    const auto second = reinterpret_cast<orv::ModuleHandle>(&two);
    EXPECT_TEXT(L"DE", manager.GetActualLanguage());
    EXPECT_EQ(nullptr, manager.FindModule(first));
    CTranslationModule* const module1 = manager.AddModule(first, folder / "plan.exe");
    EXPECT_EQ(module1, manager.AddModule(first, folder / "plan.exe"));
    EXPECT_EQ(module1, manager.FindModule(first));
    EXPECT_TRUE(module1->IsGermanActive());
    manager.SetLanguage(L"fr");
    const TempFolder other;
    other.put("wordbook.EN", "Rohr <*> tube");
    CTranslationModule* const module2 = manager.AddModule(second, other / "draw.dll");
    EXPECT_NE(module1, module2);
    EXPECT_TEXT(L"tuyau", module1->TranslateText(L"Rohr"));
    EXPECT_TEXT(L"FR", manager.GetActualLanguage());
    manager.SetLanguage(L"");
    manager.SetLanguage(L"EN");
    EXPECT_TEXT(L"pipe", module1->TranslateText(L"Rohr"));
    EXPECT_TEXT(L"tube", module2->TranslateText(L"Rohr"));
    // Printing
    EXPECT_TEXT(L"EN", manager.GetActualPrintLanguage());
    EXPECT_TEXT(L"tube", manager.GetDataText(L"Rohr", module2));
    manager.SetPrintLanguage(L"de");
    manager.SetPrintLanguage(L"");
    EXPECT_TEXT(L"DE", manager.GetActualPrintLanguage());
    EXPECT_TEXT(L"Rohr", manager.GetDataText(L"Rohr", module2));
    EXPECT_TEXT(L"tube", module2->TranslateText(L"Rohr"));
    EXPECT_TEXT(L"Host", manager.GetDataText(L"@x@Host", nullptr));
    EXPECT_NE(nullptr, manager.FindModule(nullptr));
    manager.ResetLanguage();
    EXPECT_TEXT(module1->FindBestLanguage(L""), module1->GetLanguage());
    EXPECT_TRUE(manager.RemoveModule(first));
    EXPECT_FALSE(manager.RemoveModule(first));
    EXPECT_EQ(module2, manager.FindModule(second));
    CTranslationManager::Release();
    EXPECT_EQ(nullptr, CTranslationManager::GetInstance().FindModule(second));
}

TEST_F(Translation, FormatsTakeTheSameArguments) {
    struct Row {
        const wchar_t *a, *b;
        bool same;
    };
    const Row rows[] = {
        {L"%s: %d", L"%s = %5d", true}, {L"%d", L"%s", false},        {L"%d", L"%*d", false},
        {L"100 %%", L"", true},         {L"%d %s", L"%s %d", false},  {L"%5.2f", L"%g", false},
        {L"%5.2f", L"%-8.1f", true},    {L"%I64d", L"%d", false},     {L"%ld", L"%d", false},
        {L"%i", L"%d", true},           {L"%", L"", false},           {L"50 %", L"50 %", true},
        {L"%.*f", L"%.2f", false},      {L"%I64d", L"%10I64d", true}, {nullptr, L"", true},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.same, orv::takeSameArguments(row.a, row.b)) << utf8(row.a) << " | " << utf8(row.b);
        EXPECT_EQ(row.same, orv::takeSameArguments(row.b, row.a));
    }
}

// For the thread sanitizer; elsewhere it sees torn or foreign texts.
TEST_F(Translation, ManyThreadsAtOnce) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 500;
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < kRounds; ++i) {
                if (t == 0) module.SetLanguage(i % 3 == 0 ? L"DE" : i % 3 == 1 ? L"EN" : L"FR");
                if (t == 1 && i % 50 == 0) module.Reload();
                const CString pipe = module.TranslateText(L"Rohr");
                if (pipe != L"Rohr" && pipe != L"pipe" && pipe != L"tuyau") ++wrong;
                CString own;
                own.Format(L"@x@%d", i % 100);
                if (module.TranslateText(own) != own.Mid(3)) ++wrong;
                if (module.TranslateText("narrow") != L"narrow") ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(0, wrong);
}

}  // namespace
