// Arrays, lists and times.
#include <limits>
#include <memory>

#include "support/text.h"

namespace {

TEST(CArray, ChecksItsIndices) {
    CArray<int> array;
    EXPECT_EQ(nullptr, array.GetData());
    EXPECT_EQ(0, array.Add(1));
    EXPECT_EQ(1, array.Add(2));
    EXPECT_THROW(array.GetAt(2), CInvalidArgException*);
    EXPECT_THROW(array[-1], CInvalidArgException*);
    EXPECT_THROW(array.SetAt(2, 0), CInvalidArgException*);
    EXPECT_THROW(array.RemoveAt(1, 2), CInvalidArgException*);
    EXPECT_THROW(array.SetSize(-1), CInvalidArgException*);
    array.SetAtGrow(4, array[1]);
    EXPECT_TRUE(array.GetSize() == 5 && array[3] == 0 && array[4] == 2);
    array.InsertAt(1, array[4], 2);
    EXPECT_TRUE(array.GetCount() == 7 && array[2] == 2);
    array.RemoveAt(0, 3);
    EXPECT_TRUE(array[0] == 2 && &array[0] == array.GetData());
}

TEST(CArray, HoldsFlagsAndTexts) {
    CArray<bool> flags;
    flags.SetSize(3);
    flags[1] = true;
    EXPECT_TRUE(flags.GetData()[1]);
    CStringArray texts, more;
    texts.Add(L"a");
    more.Add(CString(L"c"));
    EXPECT_EQ(1, texts.Append(more));
    EXPECT_THROW(texts.Append(texts), CInvalidArgException*);
    more.Copy(texts);
    EXPECT_TRUE(more.GetSize() == 2 && more[1] == L"c");
}

CString joined(const CStringList& list) {
    CString all;
    for (POSITION at = list.GetHeadPosition(); at != nullptr;)
        all += list.GetNext(at) + L" ";
    CString back;
    for (POSITION at = list.GetTailPosition(); at != nullptr;)
        back.Insert(0, list.GetPrev(at) + L" ");
    EXPECT_EQ(all, back) << "both ways give the same list";
    return all;
}

TEST(CList, PositionsStayGood) {
    CStringList list;
    EXPECT_THROW(list.GetHead(), CInvalidArgException*);
    EXPECT_THROW(list.RemoveTail(), CInvalidArgException*);
    const POSITION b = list.AddTail(L"b");
    list.AddHead(L"a");
    list.AddTail(L"d");
    list.InsertAfter(b, L"c");
    list.InsertBefore(nullptr, L"0");
    EXPECT_TEXT(L"0 a b c d ", joined(list));
    EXPECT_TEXT(L"0", list.RemoveHead());
    EXPECT_TRUE(list.Find(L"b") == b && list.Find(L"b", b) == nullptr);
    EXPECT_TRUE(list.FindIndex(1) == b && list.FindIndex(4) == nullptr);
    list.SetAt(b, L"B");
    for (int i = 0; i < 100; ++i)
        list.AddTail(L"x");  // many blocks
    for (int i = 0; i < 100; ++i)
        list.RemoveTail();
    EXPECT_TEXT(L"a B c d ", joined(list));
    list.RemoveAt(b);
    EXPECT_TEXT(L"a c d ", joined(list));
    list.AddTail(&list);
    EXPECT_TEXT(L"a c d a c d ", joined(list));
    list.RemoveAll();
    EXPECT_TRUE(list.GetCount() == 0 && list.GetHeadPosition() == nullptr);
}

TEST(CList, DestroysEveryElementOnce) {
    const auto counted = std::make_shared<int>(0);
    {
        CList<std::shared_ptr<int>> list(3);
        for (int i = 0; i < 10; ++i)
            list.AddTail(counted);
        list.RemoveHead();
        list.RemoveAt(list.FindIndex(4));
        EXPECT_EQ(9, counted.use_count());
    }
    EXPECT_EQ(1, counted.use_count());
}

// Throws when the copy that it is told to is made.
struct Fragile {
    static inline int copiesLeft = 1000;
    int value = 0;
    explicit Fragile(int v) : value(v) {}
    Fragile(const Fragile& other) : value(other.value) {
        if (--copiesLeft < 0) throw 1;
    }
    Fragile(Fragile&&) = default;
};

TEST(CList, AFailedCopyLeavesTheListAsItWas) {
    CList<Fragile> list;
    list.AddTail(Fragile(1));
    list.AddTail(Fragile(2));
    Fragile::copiesLeft = 0;
    EXPECT_THROW(list.AddHead(Fragile(3)), int);
    Fragile::copiesLeft = 1000;
    for (int i = 4; i < 20; ++i)
        list.AddTail(Fragile(i));
    EXPECT_EQ(18, list.GetCount());
    EXPECT_EQ(1, list.GetHead().value);
    CList<int> twice;
    twice.AddTail(1);
    twice.AddTail(2);
    twice.AddHead(&twice);
    EXPECT_EQ(4, twice.GetCount());
    EXPECT_EQ(1, twice.GetHead());
    EXPECT_EQ(2, twice.GetAt(twice.FindIndex(1)));
}

TEST(CTime, LocalCalendarGoesThereAndBack) {
    for (const int month : {1, 7, 12}) {
        const CTime time(2024, month, 29, 13, 5, 59);
        EXPECT_TRUE(time.GetYear() == 2024 && time.GetMonth() == month && time.GetDay() == 29);
        EXPECT_TRUE(time.GetHour() == 13 && time.GetMinute() == 5 && time.GetSecond() == 59);
    }
    const CTime monday(2024, 1, 1, 0, 0, 0);
    EXPECT_EQ(2, monday.GetDayOfWeek());
    EXPECT_TEXT(L"2024-01-01 00:00:00 12AM 001 1 24 % %q", monday.Format(L"%Y-%m-%d %H:%M:%S %I%p %j %w %y %% %q"));
    EXPECT_TRUE(monday < CTime(2024, 1, 1, 0, 0, 1) && monday < CTime::GetCurrentTime());
    EXPECT_THROW(CTime(1969, 1, 1, 0, 0, 0), CInvalidArgException*);
    EXPECT_THROW(CTime(2024, 13, 1, 0, 0, 0), CInvalidArgException*);
    EXPECT_EQ(0, CTime(std::numeric_limits<std::int64_t>::max()).GetYear());
    EXPECT_TEXT(L"", CTime(-1).Format(L"%Y"));
}

}  // namespace
