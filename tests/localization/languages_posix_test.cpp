// The system's language has a say where the wanted one is not there.
#include <gtest/gtest.h>

#include <cstdlib>

#include "orv/translation.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

TEST(Languages, TheSystemsComesBeforeEnglish) {
    struct Row {
        const char *locale, *files;
        const wchar_t* expected;
    };
    const Row rows[] = {
        {"it_IT.UTF-8", "FR EN IT", L"IT"},
        {"de_AT", "FR EN IT", L"DE"},
        {"es", "FR EN IT", L"EN"},
        {"es", "FR IT", L"FR"},
        {"C", "FR EN", L"EN"},
        {"", "FR IT", L"FR"},
        {"POSIX", "PO FR", L"PO"},
    };
    const char* const before = std::getenv("LC_ALL");
    const std::string kept = before != nullptr ? before : "";
    unsetenv("LC_MESSAGES");
    unsetenv("LANG");
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.locale) + ": " + row.files);
        setenv("LC_ALL", row.locale, 1);
        const TempFolder folder;
        CTranslationModule module(nullptr);
        const std::string files(row.files);
        for (std::size_t at = 0; at < files.size(); at += 3) {  // in this order
            folder.put("x_dict." + files.substr(at, 2), "");
            module.ScanDirectory(TempFolder::asText(folder.path()), L"x_dict.*");
        }
        EXPECT_TEXT(row.expected, module.FindBestLanguage(L"XX"));
        EXPECT_TEXT(row.expected, module.FindBestLanguage(L""));
    }
    if (before != nullptr) {
        setenv("LC_ALL", kept.c_str(), 1);
    } else {
        unsetenv("LC_ALL");
    }
}

}  // namespace
