// CFile, long paths and messages.
#include "orv/framework.h"
#include "orv/messages.h"
#include "support/temp_folder.h"
#include "support/text.h"

namespace {

TEST(File, OpensAsItsFlagsSay) {
    const TempFolder folder;
    const CString path = folder / "file";
    CFile file;
    EXPECT_FALSE(file.Open(path, CFile::modeRead) || file.Open(path, CFile::modeWrite));
    EXPECT_FALSE(file.Open(TempFolder::asText(folder.path()), CFile::modeRead) || file.Open(nullptr, CFile::modeRead));
    ASSERT_TRUE(file.Open(path, CFile::modeCreate | CFile::modeWrite | CFile::typeBinary));
    EXPECT_TEXT(path, file.GetFilePath());
    EXPECT_TRUE(file.Write("0123456789", 10));
    EXPECT_TRUE(file.Flush());
    char byte = 0;
    EXPECT_EQ(0U, file.Read(&byte, 1)) << "opened for writing";
    ASSERT_TRUE(file.Open(path, CFile::modeReadWrite | CFile::modeCreate | CFile::modeNoTruncate));
    EXPECT_EQ(10U, file.GetLength());
    EXPECT_EQ(7, file.Seek(-3, CFile::end));
    EXPECT_TRUE(file.Write("abcd", 4));
    EXPECT_TRUE(file.Seek(-1, CFile::begin) == -1 && file.Seek(0, 3) == -1);
    EXPECT_TRUE(file.Seek(2, CFile::begin) == 2 && file.Seek(3, CFile::current) == 5);
    char rest[20] = {};
    EXPECT_EQ(6U, file.Read(rest, sizeof(rest)));
    EXPECT_STREQ("56abcd", rest);
    EXPECT_EQ(11U, file.GetPosition());
    file.Close();
    EXPECT_FALSE(file.IsOpen());
    EXPECT_TEXT(L"", file.GetFilePath());
    EXPECT_TRUE(!file.Write("x", 1) && file.Read(rest, 1) == 0 && file.Seek(0, CFile::begin) == -1);
    ASSERT_TRUE(file.Open(path, CFile::modeRead));
    EXPECT_FALSE(file.Write("x", 1)) << "opened for reading";
    ASSERT_TRUE(file.Open(path, CFile::modeCreate | CFile::modeWrite));
    EXPECT_EQ(0U, file.GetLength());
}

// Beyond the 260 characters of the old calls; relative steps and both separators are resolved as for short paths.
TEST(File, PathsMayBeLong) {
    const TempFolder folder;
    const std::string name(60, 'n');
    std::filesystem::path place = TempFolder::unlimited(folder.path());
    CString path = TempFolder::asText(folder.path());
    for (int level = 0; level < 5; ++level) {
        place /= name;
        std::error_code error;
        ASSERT_TRUE(std::filesystem::create_directory(place, error)) << error.message();
        path += L"/";
        path += CString(name.c_str());
    }
    const CString file = path + L"/../" + CString(name.c_str()) + L"/Küche.txt";
    ASSERT_LT(300, file.GetLength());
    EXPECT_TRUE(orvStrUtil::writeStringBufferToFile(L"Rohr", file, true, 3333, false));
    CString text;
    EXPECT_TRUE(orvStrUtil::readStringFromFileAuto(text, path + L"/Küche.txt", false));
    EXPECT_TEXT(L"Rohr", text);
    EXPECT_FALSE(orvStrUtil::readStringFromFileAuto(text, path + L"/missing", false));
    // The fixture's own removal does not go so deep on Windows.
    EXPECT_TRUE(std::filesystem::remove(place / u8"Küche.txt"));
    for (; place.filename() == name; place = place.parent_path())
        EXPECT_TRUE(std::filesystem::remove(place));
}

CString shown;

TEST(Messages, GoThroughTheOnePresenter) {
    const auto first = [](orv::MessageKind, const wchar_t*, const wchar_t*) { shown = L"wrong"; };
    const auto second = [](orv::MessageKind kind, const wchar_t* title, const wchar_t* text) {
        shown.Format(L"%d|%s|%s", static_cast<int>(kind), title, text);
    };
    EXPECT_EQ(nullptr, orv::setMessagePresenter(first));
    EXPECT_EQ(orv::MessagePresenter(first), orv::setMessagePresenter(second));
    orv::showMessage(orv::MessageKind::kError, L"Titel", L"Text");
    EXPECT_TEXT(L"2|Titel|Text", shown);
    orv::showMessage(orv::MessageKind::kInformation, nullptr, nullptr);
    EXPECT_TEXT(L"0||", shown);
    EXPECT_EQ(orv::MessagePresenter(second), orv::setMessagePresenter(nullptr));
}

}  // namespace
