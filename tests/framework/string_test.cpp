// CString: sharing, editing, searching.
#include <atomic>
#include <thread>
#include <vector>

#include "support/text.h"

namespace {

TEST(CString, CopiesShareUntilOneChanges) {
    CString a(L"Heizung");
    CString b(a);
    EXPECT_EQ(a.GetString(), b.GetString());
    b.SetAt(0, L'B');
    EXPECT_TEXT(L"Heizung", a);
    EXPECT_TEXT(L"Beizung", b);
    CString c = std::move(b);
    EXPECT_TRUE(b.IsEmpty());
    b = c;
    c += L"!";
    EXPECT_TEXT(L"Beizung", b);
    a = a.GetString() + 3;  // a part of itself
    EXPECT_TEXT(L"zung", a);
    a += a;
    EXPECT_TEXT(L"zungzung", a);
    a.Append(a.GetString() + 4, 2);
    EXPECT_TEXT(L"zungzungzu", a);
    a.Insert(1, a.GetString() + 8);
    EXPECT_TEXT(L"zzuungzungzu", a);
}

TEST(CString, LockedCharactersAreNotShared) {
    CString a(L"abc");
    const wchar_t* own = a.LockBuffer();
    CString copy(a);
    EXPECT_TRUE(copy.GetString() != own && a.GetString() == own);
    a.Empty();
    EXPECT_EQ(own, a.GetString());
    EXPECT_TEXT(L"abc", copy);
    a.UnlockBuffer();
    CString after(a);
    EXPECT_EQ(a.GetString(), after.GetString());
}

TEST(CString, Buffer) {
    CString text(L"ab");
    wchar_t* buffer = text.GetBuffer(100);
    EXPECT_GE(text.GetAllocLength(), 100);
    EXPECT_TEXT(L"ab", text);
    for (int i = 0; i < 10; ++i)
        buffer[i] = L'x';
    buffer[10] = 0;
    text.ReleaseBuffer();
    EXPECT_EQ(10, text.GetLength());
    text.GetBufferSetLength(3);
    EXPECT_TEXT(L"xxx", text);
    EXPECT_THROW(text.ReleaseBufferSetLength(1'000'000), CInvalidArgException*);
    EXPECT_THROW(text.GetBufferSetLength(-1), CInvalidArgException*);
    text.FreeExtra();
    EXPECT_LT(text.GetAllocLength(), 100);
    EXPECT_TEXT(L"xxx", text);
}

TEST(CString, PositionsAreCheckedOrClamped) {
    const CString text(L"Rohr");
    EXPECT_EQ(0, text[4]);
    EXPECT_THROW(text[5], CInvalidArgException*);
    EXPECT_THROW(text.GetAt(-1), CInvalidArgException*);
    EXPECT_THROW(CString(text).SetAt(4, L'x'), CInvalidArgException*);
    EXPECT_TEXT(L"ohr|oh|Ro||", text.Mid(1) + L"|" + text.Mid(1, 2) + L"|" + text.Mid(-3, 2) + L"|" + text.Mid(9, 2) +
                                    L"|" + text.Mid(1, -1));
    EXPECT_TEXT(L"hr|Rohr|", text.Right(2) + L"|" + text.Right(9) + L"|" + text.Left(-1));
}

TEST(CString, Editing) {
    CString text(L"abcabc");
    EXPECT_TRUE(text.Replace(L"bc", L"-+-") == 2 && text.Replace(L"", L"x") == 0);
    EXPECT_TEXT(L"a-+-a-+-", text);
    EXPECT_TRUE(text.Replace(L'-', L'=') == 4 && text.Remove(L'=') == 4);
    EXPECT_TRUE(text.Insert(99, L'!') == 5 && text.Insert(-1, L">>") == 7);
    EXPECT_TEXT(L">>a+a+!", text);
    EXPECT_TRUE(text.Delete(0, 2) == 5 && text.Delete(3, 99) == 3);
    EXPECT_TRUE(text.Insert(1, L'\0') == 4 && text.GetLength() == 4 && text.Remove(L'\0') == 1);
    EXPECT_TEXT(L"a+a", text);
    EXPECT_TEXT(L"cba", CString(L"abc").MakeReverse());
    EXPECT_TEXT(L"xyz", CString(L"--xyz-+").Trim(L"+-"));
    EXPECT_TEXT(L"x", CString(L"\x00A0\t x\x3000\r\n").Trim());
    EXPECT_TEXT(L"xx-", CString(L"-xx-").TrimLeft(L'-'));
    EXPECT_TEXT(L"", CString(L"---").TrimRight(L'-'));
}

TEST(CString, Searching) {
    const CString text(L"Rohr DN50 DN65");
    EXPECT_TRUE(text.Find(L"DN") == 5 && text.Find(L"DN", 6) == 10 && text.Find(L"DN", 15) == -1);
    EXPECT_TRUE(text.Find(L"", 3) == 3 && text.Find(L"", 14) == 14);
    EXPECT_TRUE(text.ReverseFind(L'D') == 10 && text.FindOneOf(L"5 ") == 4);
    EXPECT_TEXT(L"Rohr", text.SpanExcluding(L" "));
    EXPECT_TEXT(L"Roh", CString(L"Rohx").SpanIncluding(L"hoR"));
    int at = 0;
    for (const wchar_t* token : {L"Rohr", L"N50", L"N65", L""})
        EXPECT_TEXT(token, text.Tokenize(L" D", at));
    EXPECT_EQ(-1, at);
}

TEST(CString, SearchTakesLinearTime) {
    const CString text(L'a', 400'000);
    CString what(L'a', 200'000);
    EXPECT_EQ(0, text.Find(what));
    what += L'b';
    EXPECT_EQ(-1, text.Find(what));
    EXPECT_EQ(200'000, (text + what).Find(what, 1) - 200'000);
}

TEST(CString, ComparesByCodeAndByFoldedCase) {
    EXPECT_TRUE(CString(L"Z").Compare(L"a") < 0 && CString(L"ab").Compare(L"a") > 0 && CString(L"").Compare(L"a") < 0);
    EXPECT_EQ(0, CString(L"").Compare(nullptr));
    EXPECT_EQ(0, CString(L"ÄΔЖZ").CompareNoCase(L"äδжz"));
    EXPECT_NE(0, CString(L"ß").CompareNoCase(L"ss"));
    EXPECT_TEXT(L"ä\x00F7ß", CString(L"Ä\x00F7ß").MakeLower());
    EXPECT_TEXT(L"Ä\x00D7ß\x0178", CString(L"ä\x00D7ß\x00FF").MakeUpper());
    EXPECT_TRUE(CString(L"a") < L"b" && L"a" < CString(L"b") && CString(L"a") != L"b" && L"a" == CString(L"a"));
}

TEST(CString, NarrowTexts) {
    CString text("abc", 2);
    EXPECT_TEXT(L"ab", text);
    text = "x";
    text += "y";
    EXPECT_TEXT(L"xy", text);
    EXPECT_TEXT(L"", CString(static_cast<const char*>(nullptr)));
}

TEST(CString, AppendingIsLinear) {
    CString text;
    for (int i = 0; i < 2'000'000; ++i)
        text += static_cast<wchar_t>(L'a' + i % 26);
    ASSERT_EQ(2'000'000, text.GetLength());
    EXPECT_EQ(L'a' + 1'999'999 % 26, text[1'999'999]);
}

TEST(CString, CopiesMayLiveOnSeveralThreads) {
    const CString shared(L"gemeinsam");
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 2; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 20'000; ++round) {
                CString copy(shared);
                CString second(copy);
                second += L"!";
                if (copy != L"gemeinsam" || second != L"gemeinsam!") ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(0, wrong.load());
    EXPECT_TEXT(L"gemeinsam", shared);
}

}  // namespace
