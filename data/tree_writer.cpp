// Sizes and text of branches, which agree exactly: buffers are allocated from the sizes.
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "data/item_memory.h"
#include "data/tree_links.h"
#include "framework/vector.h"
#include "orv/string_utilities.h"

namespace {

using orv::viewOf;
using orv::WideView;

std::size_t lengthOf(const CString& text) { return static_cast<std::size_t>(text.GetLength()); }

/// Where a walk stands: the number of TABs before a node, and how the levels below go on.
class Indent {
  public:
    explicit Indent(int level) : isIndented_(level >= 0), tabs_(static_cast<std::size_t>(std::max(level, 0))) {}
    bool isIndented() const { return isIndented_; }
    std::size_t ofNode() const { return tabs_; }
    std::size_t ofLeaf() const { return isIndented_ ? tabs_ + 1 : 0; }
    void enter() { tabs_ = ofLeaf(); }
    void leave() { tabs_ -= isIndented_ ? 1U : 0U; }

  private:
    bool isIndented_;
    std::size_t tabs_;
};

/// <Name>value</Name>
bool isOneLine(const CNode& node) { return node.isSimpleXML() && node.NrOfChildren() == 0 && node.NrOfLeaves() == 1; }

std::size_t leafSize(const CLeaf& leaf, std::size_t tabs) {
    return tabs + orv::kLeafCharacters + lengthOf(leaf.GetName()) + lengthOf(leaf.GetRawData());
}

/// What stands before and behind the leaves and children; all of a node on one line.
orv::TextSize frameSize(const CNode& node) {
    const std::size_t names = 2 * lengthOf(node.GetName());
    if (isOneLine(node)) return {names + lengthOf(orv::TreeAccess::firstLeaf(node)->GetRawData()) + 7, 1, 0};
    return {names + (node.isSimpleXML() ? 9 : 13), 2, 0};
}

/// Without its children, unless it is packed.
std::size_t ownSize(const CNode& node, const Indent& indent) {
    if (orv::TreeAccess::isPacked(node)) {
        const orv::TextSize all = orv::TreeAccess::sizeOfPacked(node);
        return all.characters + (indent.isIndented() ? all.tabs + all.lines * indent.ofNode() : 0);
    }
    const orv::TextSize frame = frameSize(node);
    std::size_t size = frame.characters + frame.lines * indent.ofNode();
    if (isOneLine(node)) return size;
    for (const CLeaf& leaf : orv::leavesOf(node)) {
        orv::askAhead(&leaf);
        size += leafSize(leaf, indent.ofLeaf());
    }
    return size;
}

class Writer {
  public:
    Writer(wchar_t* out, wchar_t separator) : out_(out), separator_(separator) {}

    void begin(const CNode& node, const Indent& indent) {
        tabs(indent.ofNode());
        const bool isXml = node.isSimpleXML();
        put(isXml ? L'<' : L'[');
        put(viewOf(node.GetName()));
        put(isXml ? L'>' : L']');
        if (isOneLine(node)) {
            // ODDITY(tree-one-line-leaf): the leaf's name is not written, so it reads back as "".
            // Pinned by TreeText.Writes.
            put(viewOf(orv::TreeAccess::firstLeaf(node)->GetRawData()));
            return;
        }
        put(L"\r\n");
        for (const CLeaf& one : orv::leavesOf(node)) {
            orv::askAhead(&one);
            leaf(one, indent.ofLeaf());
        }
    }
    void end(const CNode& node, const Indent& indent) {
        if (!isOneLine(node)) tabs(indent.ofNode());
        if (node.isSimpleXML()) {
            put(L"</");
        } else {
            put(L"[ENDE_");
        }
        put(viewOf(node.GetName()));
        put(node.isSimpleXML() ? L'>' : L']');
        put(L"\r\n");
    }
    void leaf(const CLeaf& leaf, std::size_t indent) {
        tabs(indent);
        put(viewOf(leaf.GetName()));
        put(separator_);
        put(viewOf(leaf.GetRawData()));
        put(L"\r\n");
    }
    /// The place of the closing NUL.
    wchar_t* finish() {
        *out_ = 0;
        return out_;
    }

  private:
    void tabs(std::size_t count) { out_ = std::fill_n(out_, count, L'\t'); }
    void put(wchar_t ch) { *out_++ = ch; }
    template <std::size_t Size>
    void put(const wchar_t (&literal)[Size]) {
        std::memcpy(out_, literal, (Size - 1) * sizeof(wchar_t));
        out_ += Size - 1;
    }
    void put(WideView text) {
        orv::copyUnits(out_, text.data(), text.size());
        out_ += text.size();
    }

    wchar_t* out_;
    wchar_t separator_;
};

void printError(const CString& text) { std::fputs(orvStdStrUtil::convertUnicodeToUtf8(text).c_str(), stderr); }

}  // namespace

std::size_t CLeaf::GetSizeOfBranch(int level) const {
    return leafSize(*this, static_cast<std::size_t>(std::max(level, 0)));
}

std::size_t CLeaf::WriteToMem(wchar_t*& out, int level, wchar_t separator) const {
    Writer writer(out, separator);
    writer.leaf(*this, static_cast<std::size_t>(std::max(level, 0)));
    const wchar_t* const first = out;
    out = writer.finish();
    return static_cast<std::size_t>(out - first);
}

void CLeaf::Dump(int level) const {
    const CString tabs(L'\t', std::clamp(level, 0, 1000));
    printError(tabs + GetName() + L" = " + value_ + L"\n");
}

std::size_t CNode::GetSizeOfBranch(int level) const {
    Indent indent(level);
    std::size_t size = 0;
    orv::walkBranch(
        *this,
        [&](const CNode& node) {
            size += ownSize(node, indent);
            indent.enter();
            return !orv::TreeAccess::isPacked(node);
        },
        [&](const CNode&) { indent.leave(); });
    return size;
}

orv::TextSize orv::TreeAccess::sizeOfPacked(const CNode& node) {
    TextSize size = frameSize(node);
    if (isOneLine(node)) return size;
    size.characters += node.packedSize_.characters;
    size.lines += node.packedSize_.lines + static_cast<std::size_t>(node.leaves_.count);
    size.tabs += node.packedSize_.tabs + static_cast<std::size_t>(node.leaves_.count);
    return size;
}

std::size_t CNode::WriteToMem(wchar_t*& out, int level, wchar_t separator) const {
    Indent indent(level);
    Writer writer(out, separator);
    orv::walkBranch(
        *this,
        [&](const CNode& node) {
            writer.begin(node, indent);
            indent.enter();
        },
        [&](const CNode& node) {
            indent.leave();
            writer.end(node, indent);
        });
    const wchar_t* const first = out;
    out = writer.finish();
    return static_cast<std::size_t>(out - first);
}

void CNode::Dump(int level) const {
    orv::walkBranch(
        *this,
        [&](const CNode& node) {
            printError(CString(L'\t', std::clamp(level, 0, 1000)) + node.GetName() + L"\n");
            ++level;
            for (const CLeaf& leaf : orv::leavesOf(node))
                leaf.Dump(level);
        },
        [&](const CNode&) { --level; });
}

bool CNode::WriteToString(CString& out, bool /*scrambled*/, bool indented, bool /*unicode*/, unsigned int /*codePage*/,
                          wchar_t separator) const {
    const int level = indented ? 0 : -1;
    const std::size_t size = GetSizeOfBranch(level);
    out.Empty();
    if (size > orv::kLongestText) return false;
    wchar_t* at = out.GetBufferSetLength(static_cast<int>(size));
    WriteToMem(at, level, separator);
    return size > 0;
}
