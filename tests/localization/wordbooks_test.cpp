// Wordbooks: which files are found, and what their lines mean.
#include <gtest/gtest.h>

#include "orv/translation.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

CString folderOf(const TempFolder& folder) { return TempFolder::asText(folder.path()); }

TEST(Wordbooks, LinesAreReadLikeThis) {
    struct Row {
        const char* line;
        const wchar_t *source, *expected;  // null: there is no translation
    };
    const Row rows[] = {
        {"Rohr <*> pipe", L"Rohr", L"pipe"},
        {"Rohr <*>pipe", L"Rohr", nullptr},
        {"Rohr<*> pipe", L"Rohr", nullptr},
        {"Rohr", L"Rohr", nullptr},
        {"Rohr <*> ", L"Rohr", nullptr},
        {"Rohr <*>", L"Rohr", nullptr},
        {" <*> nothing", L"", L"nothing"},
        {"a <*> b <*> c", L"a", L"b <*> c"},
        {"a < b <*> c", L"a < b", L"c"},
        {"@Teil@Rohr <*> pipe", L"@Teil@Rohr", L"pipe"},
        {"Rohr <*> @part@pipe", L"Rohr", L"pipe"},
        {"Rohr <*> @part@", L"Rohr", L""},
        {"Rohr <*> @pipe", L"Rohr", L"@pipe"},
        {R"(a\r\n\t\"b <*> \tc\"d\n)", L"a\r\n\t\"b", L"\tc\"d\n"},
        {R"(a\\b <*> c\\d)", L"a\\b", L"c\\d"},
        {R"(a\\n <*> c\\n)", L"a\\\n", L"c\\\n"},  // the line feed is found first
        {R"(a\x <*> b\)", L"a\\x", L"b\\"},
        // The last characters
        {"Name: <*> name", L"Name:", L"name:"},
        {"Name: <*> name:", L"Name:", L"name:"},
        {"Name <*> name:", L"Name", L"name:"},
        {"Name  <*> name", L"Name ", L"name "},
        {"Name <*> name ", L"Name", L"name"},
        {"Name: <*> name ", L"Name:", L"name "},
        {R"(Name\n <*> name )", L"Name\n", L"name "},
        {R"(Name\n <*> name)", L"Name\n", L"name\n"},
        {"Name. <*> name", L"Name.", L"name"},
        {"Name: <*> @x@", L"Name:", L":"},
        {"Name <*>  ", L"Name", L""},
        {"Gr\xF6\xDF"
         "e <*> size \xB2",
         L"Größe", L"size ²"},
    };
    for (const char* end : {"", "\r\n", "\n", "\r"}) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.line);
            const TempFolder folder;
            folder.put("wordbook.en", std::string(row.line) + end);
            CTranslationModule module(nullptr);
            ASSERT_EQ(1, module.ScanDirectory(folderOf(folder)));
            CString found = L"untouched";
            EXPECT_EQ(row.expected != nullptr ? 1 : 0, module.FindTranslation(row.source, found, L"EN"));
            EXPECT_TEXT(row.expected != nullptr ? row.expected : L"untouched", found);
            EXPECT_EQ(0, module.FindTranslation(row.source, found, L"en"));
        }
    }
}

TEST(Wordbooks, TheLastLineAndTheFirstFileCount) {
    const TempFolder folder;
    folder.put("wordbook.EN", "a <*> 1\na <*> 2\r\n\r\nb <*> \nb <*> 3\nb <*> ");
    folder.put("more.EN", "a <*> 9\nc <*> 4");
    folder.put("utf.FR", "\xEF\xBB\xBFK\xC3\xA4lte <*> froid\xE2\x82\xAC");
    CTranslationModule module(nullptr);
    EXPECT_EQ(1, module.ScanDirectory(folderOf(folder), L"wordbook.*"));
    EXPECT_EQ(1, module.ScanDirectory(folderOf(folder), L"more.*"));
    EXPECT_EQ(1, module.ScanDirectory(folderOf(folder), L"utf.*"));
    module.SetLanguage(L"fr");
    for (const auto& [source, expected] :
         {std::pair(L"a", L"2"), std::pair(L"b", L"3"), std::pair(L"c", L"4"), std::pair(L"Kälte", L"froid€")}) {
        CString found;
        EXPECT_EQ(1, module.FindTranslation(source, found)) << utf8(source);
        EXPECT_TEXT(expected, found);
    }
    // A file that comes back is read; one that was read stays until Reload.
    folder.put("wordbook.EN", "a <*> new");
    EXPECT_TEXT(L"2", module.TranslateText(L"a"));
    module.Reload();
    EXPECT_TEXT(L"new", module.TranslateText(L"a"));
}

TEST(Wordbooks, FilesAreFoundLikeThis) {
    struct Row {
        const char* files;  // with blanks between
        const char* module;
        int expected;
        const wchar_t* languages;
    };
    const Row rows[] = {
        {"plan_dict.EN plan_dict.fr wordbook.IT", "plan.exe", 2, L"DE EN FR"},
        {"plan_dict.EN wordbook.IT", "plan_64_d.exe", 1, L"DE EN"},
        {"plan_dict.EN", "_plan.exe", 0, L"DE"},
        {"plan.exe.EN wordbook.IT", "plan.exe", 1, L"DE EN"},
        {"plan.DLL.EN wordbook.IT", "plan.DLL", 1, L"DE IT"},
        {"plan.EN wordbook.IT", "plan", 1, L"DE IT"},
        {"wordbook.db wordbook.xDB wordbook.FR", "plan.exe", 1, L"DE FR"},
        {"wordbook.E wordbook", "plan.exe", 1, L"DE E"},
        {"a.EN", "plan.exe", 0, L"DE"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.files);
        const TempFolder folder;
        std::string name;
        for (const char* at = row.files;; ++at) {
            if (*at != ' ' && *at != 0) {
                name += *at;
                continue;
            }
            folder.put(name, "");
            name.clear();
            if (*at == 0) break;
        }
        CTranslationModule module(nullptr);
        EXPECT_EQ(row.expected, module.ScanWordbookFiles(folder / row.module));
        EXPECT_EQ(row.expected, module.ScanWordbookFiles(folder / row.module)) << "known files count again";
        CStringArray languages;
        module.EnumLanguages(languages);
        int known = 0;
        for (int i = 0; i < languages.GetSize(); ++i)
            known += (CString(L" ") + row.languages + L" ").Find(L" " + languages[i] + L" ") >= 0 ? 1 : 0;
        EXPECT_EQ(known, languages.GetSize());
        EXPECT_EQ(row.expected + 1, languages.GetSize());
    }
    CTranslationModule module(nullptr);
    EXPECT_EQ(0, module.ScanWordbookFiles(L"plan.exe")) << "no folder";
    // The raw text of a pattern is longer than what it matches.
    const TempFolder folder;
    folder.put("ab.EN", "");
    EXPECT_EQ(0, module.ScanDirectory(folderOf(folder), L"ab*.*EN"));
    EXPECT_EQ(1, module.ScanDirectory(folderOf(folder), L"ab.*"));
}

}  // namespace
