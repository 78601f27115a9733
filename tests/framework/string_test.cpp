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
    EXPECT_NE(own, copy.GetString());
    EXPECT_EQ(own, a.GetString());
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
    EXPECT_TEXT(L"ohr", text.Mid(1));
    EXPECT_TEXT(L"oh", text.Mid(1, 2));
    EXPECT_TEXT(L"Ro", text.Mid(-3, 2));
    EXPECT_TEXT(L"", text.Mid(9, 2));
    EXPECT_TEXT(L"", text.Mid(1, -1));
    EXPECT_TEXT(L"hr", text.Right(2));
    EXPECT_TEXT(L"Rohr", text.Right(9));
    EXPECT_TEXT(L"", text.Left(-1));
}

TEST(CString, Editing) {
    CString text(L"abcabc");
    EXPECT_EQ(2, text.Replace(L"bc", L"-+-"));
    EXPECT_TEXT(L"a-+-a-+-", text);
    EXPECT_EQ(0, text.Replace(L"", L"x"));
    EXPECT_EQ(4, text.Replace(L'-', L'='));
    EXPECT_EQ(4, text.Remove(L'='));
    EXPECT_TEXT(L"a+a+", text);
    EXPECT_EQ(5, text.Insert(99, L'!'));
    EXPECT_EQ(7, text.Insert(-1, L">>"));
    EXPECT_TEXT(L">>a+a+!", text);
    EXPECT_EQ(5, text.Delete(0, 2));
    EXPECT_EQ(3, text.Delete(3, 99));
    EXPECT_TEXT(L"a+a", text);
    EXPECT_EQ(4, text.Insert(1, L'\0'));
    EXPECT_EQ(4, text.GetLength());
    EXPECT_EQ(1, text.Remove(L'\0'));
    text.MakeReverse();
    EXPECT_TEXT(L"a+a", text);
    EXPECT_TEXT(L"xyz", CString(L"--xyz-+").Trim(L"+-"));
    EXPECT_TEXT(L"x", CString(L"\x00A0\t x\x3000\r\n").Trim());
    EXPECT_TEXT(L"xx-", CString(L"-xx-").TrimLeft(L'-'));
    EXPECT_TEXT(L"", CString(L"---").TrimRight(L'-'));
}

TEST(CString, Searching) {
    const CString text(L"Rohr DN50 DN65");
    EXPECT_EQ(5, text.Find(L"DN"));
    EXPECT_EQ(10, text.Find(L"DN", 6));
    EXPECT_EQ(-1, text.Find(L"DN", 15));
    EXPECT_EQ(3, text.Find(L"", 3));
    EXPECT_EQ(14, text.Find(L"", 14));
    EXPECT_EQ(10, text.ReverseFind(L'D'));
    EXPECT_EQ(4, text.FindOneOf(L"5 "));
    EXPECT_TEXT(L"Roh", text.SpanIncluding(L"Roh").Left(3));
    EXPECT_TEXT(L"Rohr", text.SpanExcluding(L" "));
    int at = 0;
    EXPECT_TEXT(L"Rohr", text.Tokenize(L" D", at));
    EXPECT_TEXT(L"N50", text.Tokenize(L" D", at));
    EXPECT_TEXT(L"N65", text.Tokenize(L" D", at));
    EXPECT_TEXT(L"", text.Tokenize(L" D", at));
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
    EXPECT_LT(CString(L"Z").Compare(L"a"), 0);
    EXPECT_GT(CString(L"ab").Compare(L"a"), 0);
    EXPECT_LT(CString(L"").Compare(L"a"), 0);
    EXPECT_EQ(0, CString(L"").Compare(nullptr));
    EXPECT_EQ(0, CString(L"\x00C4\x0394\x0416Z").CompareNoCase(L"\x00E4\x03B4\x0436z"));
    EXPECT_NE(0, CString(L"\x00DF").CompareNoCase(L"ss"));
    EXPECT_TEXT(L"\x00E4\x00F7\x00DF", CString(L"\x00C4\x00F7\x00DF").MakeLower());
    EXPECT_TEXT(L"\x00C4\x00D7\x00DF\x0178", CString(L"\x00E4\x00D7\x00DF\x00FF").MakeUpper());
    EXPECT_TRUE(CString(L"a") < L"b" && L"a" < CString(L"b") && CString(L"a") != L"b" && L"a" == CString(L"a"));
}

TEST(CString, NarrowTexts) {
    EXPECT_TEXT(L"abc", CString("abc"));
    EXPECT_TEXT(L"ab", CString("abc", 2));
    CString text;
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
