// Data trees on the real clipboard.
#include <gtest/gtest.h>
#include <windows.h>

#include <memory>

#include "orv/tree_items.h"
#include "orv/tree_tools.h"
#include "support/text.h"

namespace {

using Item = std::unique_ptr<CTreeItem>;

void empty() {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
}

TEST(TreeClipboard, ItemsGoThereAndBack) {
    empty();
    EXPECT_FALSE(CTreeItem::IsClipboardAvailable());
    EXPECT_EQ(nullptr, CTreeItem::ReadFromClipBoard(L'='));
    CNode node(L"Raum");
    node.AddLeaf(L"Fläche", L"12,5");
    node.AddChild(L"Heizkörper")->AddLeaf(L"Typ", 22);
    EXPECT_TRUE(node.WriteToClipBoard(L'='));
    EXPECT_TRUE(CTreeItem::IsClipboardAvailable());
    const Item read(CTreeItem::ReadFromClipBoard(L'='));
    ASSERT_EQ(1, read->GetType());
    EXPECT_TRUE(orv::equalTrees(node, static_cast<const CNode&>(*read)));
    const CLeaf leaf(L"Typ", L"22:600");
    EXPECT_TRUE(leaf.WriteToClipBoard(L':'));
    const Item readLeaf(CTreeItem::ReadFromClipBoard(L':'));
    ASSERT_NE(1, readLeaf->GetType());
    EXPECT_TEXT(L"Typ", readLeaf->GetName());
    EXPECT_TEXT(L"22:600", static_cast<const CLeaf&>(*readLeaf).GetRawData());
}

TEST(TreeClipboard, TextIsUnicodeText) {
    CNode node(L"Raum");
    node.AddLeaf(L"Fläche", 12);
    const auto text = [](UINT format) {
        CString found;
        if (OpenClipboard(nullptr) == FALSE) return found;
        if (const HANDLE data = GetClipboardData(format); data != nullptr) {
            found = static_cast<const wchar_t*>(GlobalLock(data));
            GlobalUnlock(data);
        }
        CloseClipboard();
        return found;
    };
    EXPECT_TRUE(node.ClipboardOut(true, true));
    EXPECT_TEXT(L"[Raum]\r\n\tFläche:12\r\n[ENDE_Raum]\r\n", text(CF_UNICODETEXT));
    EXPECT_TRUE(node.ClipboardOut(false, false));
    EXPECT_TEXT(L"[Raum]\r\nFläche:12\r\n[ENDE_Raum]\r\n", text(RegisterClipboardFormatW(L"UPRONODE")));
    EXPECT_FALSE(CTreeItem::IsClipboardAvailable());
}

}  // namespace
