#include <windows.h>

#include <memory>

#include "orv/node_format.h"
#include "support/text.h"

TEST(NodeClipboard, TextFormatHoldsWideCharacters) {
    CProNodeBase root(L"A");
    root.AddAttr(L"b", L"c");
    for (const bool asText : {true, false}) {
        ASSERT_TRUE(root.ClipboardOut(asText, true));
        EXPECT_EQ(IsClipboardFormatAvailable(CF_TEXT) != FALSE, asText);
        const std::unique_ptr<CProNodeBase> back(CProNodeBase::ClipboardIn(false));
        ASSERT_TRUE(back);
        EXPECT_TRUE(orv::equalNodes(root, *back));
    }
}
