#include "data/tree_reader.h"

#include <algorithm>

#include "data/indentation.h"
#include "data/line_marks.h"
#include "data/names.h"
#include "data/tree_memory.h"
#include "framework/characters.h"
#include "framework/cpu.h"
#include "framework/vector.h"

namespace orv {
namespace {

constexpr WideView kEndPrefix = L"[ENDE_";
constexpr int kMostLevelsSearched = 1000;

CString textOf(const wchar_t* begin, const wchar_t* end) { return {begin, static_cast<int>(end - begin)}; }

void skipSpace(const wchar_t*& at) {
    while (isSpace(*at))
        ++at;
}

WideView between(const wchar_t* begin, const wchar_t* end) { return {begin, static_cast<std::size_t>(end - begin)}; }

void skipLineEnd(const wchar_t*& at) {
    if (at[0] == L'\r' && at[1] == L'\n') {
        at += 2;
    } else if (at[0] == L'\n') {
        ++at;
    }
}

class TreeReader {
  public:
    TreeReader(CNode& root, const wchar_t*& at, wchar_t separator, const TreeErrorHandler& onError)
        : root_(root), at_(at), separator_(separator), onError_(onError), marks_(at, separator) {}

    bool read() {
        skipSpace(at_);
        if (*at_ != L'[' && *at_ != L'<') {
            onError_(TreeError::kNoStartBracket, at_, nullptr);
            return false;
        }
        node_ = &root_;
        TreeAccess::begin(root_);
        if (root_.NrOfChildren() != 0 || root_.NrOfLeaves() != 0) cannotPack();
        if (!readName()) return false;
        while (node_ != nullptr) {
            const wchar_t* mark = marks_.from(at_);
            at_ = indentation_.behind(at_, mark);
            if (isSpace(*at_)) {
                skipSpace(at_);
                if (at_ > mark) mark = marks_.from(at_);
            }
            const bool isXml = node_->isSimpleXML();
            if (*at_ != (isXml ? L'<' : L'[')) {
                if (!(isXml || separator_ == L'<' ? readLeaf(isXml) : readLine(mark))) return false;
            } else if (isXml ? at_[1] == L'/' : marks_.isAt(at_, kEndPrefix)) {
                if (!readEnd(isXml ? 2 : kEndPrefix.size())) return false;
            } else if (!isXml && at_[1] == L'/' && at_[2] == L']') {
                // ODDITY(tree-short-end): closes the node whatever its name. Pinned by TreeText.Reads.
                at_ += 3;
                skipLineEnd(at_);
                close(node_);
            } else {
                node_ = TreeAccess::newChild(pages_, *node_, const_cast<wchar_t*>(emptyString()));
                ++depth_;
                if (!readName()) return false;
            }
        }
        return true;
    }

  private:
    bool fail(TreeError error) {
        onError_(error, at_, node_);
        return false;
    }

    /// At the opening bracket, which decides the node's kind.
    bool readName() {
        node_->setSimpleXML(*at_ == L'<');
        const wchar_t closing = *at_++ == L'<' ? L'>' : L']';
        const wchar_t* const first = at_;
        while (*at_ != closing) {
            if (*at_ == 0) return fail(TreeError::kEndInName);
            ++at_;
        }
        const WideView name = between(first, at_);
        // A name on the heap ends with its node alone, and so not with a run of those around it.
        if (bytesOfText(name.size()) > MemoryPages::kLargestPiece) notPacked_ = std::max(notPacked_, depth_);
        TreeAccess::setName(*node_, names_.get(name));
        ++at_;
        skipLineEnd(at_);
        return true;
    }

    bool readLeaf(bool isXml) {
        LeafText text;
        const wchar_t* const first = at_;
        if (!readLeafText(at_, isXml ? L'<' : separator_, text)) return fail(TreeError::kEndInLeaf);
        if (at_ == first) ++at_;  // only where "<" separates in a bracketed node: its empty leaf must not come again
        addRareLeaf(between(text.name, text.nameEnd), between(text.value, text.valueEnd));
        return true;
    }

    /// As readLeafText, by marks, of which the first is known: a CR ends a name, and a value only in front of a LF.
    bool readLine(const wchar_t* mark) {
        const wchar_t* const first = at_;
        if (*mark != separator_ || *mark == 0)
            return readBareName(first + findUnit(first, static_cast<std::size_t>(mark - first), L'\r'));
        wchar_t* name = names_.expected(between(first, mark));
        if (name == nullptr) {
            const std::size_t cr = findUnit(first, static_cast<std::size_t>(mark - first), L'\r');
            if (first + cr != mark) return readBareName(first + cr);
            name = nameOf(between(first, mark));
        }
        const wchar_t* const value = mark + 1;
        const wchar_t* end = marks_.following();
        while (*end != L'\n' && *end != 0)
            end = marks_.following();
        at_ = end + 1;
        if (*end == 0) {
            at_ = end;
        } else if (end[-1] == L'\r' && end > value) {
            --end;
        }
        addLeaf(name, between(value, end));
        return true;
    }

    /// A line without a separator.
    bool readBareName(const wchar_t* end) {
        const WideView name = between(at_, end);
        at_ = end;
        if (*end == 0) return fail(TreeError::kEndInLeaf);
        at_ += *at_ == L'\r' ? 1 : 0;
        at_ += *at_ == L'\n' ? 1 : 0;
        addRareLeaf(name, {});
        return true;
    }

    ORV_KERNEL_INLINE void addLeaf(wchar_t* name, WideView value) {
        if (node_->NrOfChildren() != 0 || !isForPage(value)) cannotPack();
        const CLeaf* leaf = TreeAccess::newLeaf(pages_, *node_, name, value, marks_.seenFrom(value.data()));
        const auto nameLength = static_cast<std::size_t>(leaf->GetName().GetLength());
        TreeAccess::addLeafSize(*node_, nameLength + value.size());
    }

    void addRareLeaf(WideView name, WideView value) { addLeaf(nameOf(name), value); }

    wchar_t* nameOf(WideView name) {
        wchar_t* const lasting = names_.lasting(name);
        if (lasting != nullptr) return lasting;
        cannotPack();
        return makeText(pages_, name);
    }

    bool readEnd(std::size_t prefix) {
        const wchar_t closing = node_->isSimpleXML() ? L'>' : L']';
        if (names(*node_, at_ + prefix, closing)) {
            at_ += prefix + viewOf(node_->GetName()).size() + 1;
            skipLineEnd(at_);
            close(node_);
            return true;
        }
        if (!onError_(TreeError::kWrongEnd, at_, node_)) return false;
        CNode* named = node_;
        for (int level = 0; level < kMostLevelsSearched && named != nullptr; ++level) {
            if (names(*named, at_ + prefix, closing)) break;
            named = named == &root_ || level + 1 == kMostLevelsSearched ? nullptr : named->GetParent();
        }
        at_ += prefix;
        while (*at_ != closing && *at_ != 0 && *at_ != L'\r' && *at_ != L'\n')
            ++at_;
        if (*at_ == closing) ++at_;
        skipLineEnd(at_);
        close(named != nullptr ? named : node_);
        return true;
    }

    bool names(const CNode& node, const wchar_t* text, wchar_t closing) const {
        const WideView name = viewOf(node.GetName());
        return marks_.isAt(text, name) && text[name.size()] == closing;
    }

    void close(CNode* node) {
        for (bool isDone = false; !isDone; --depth_) {
            if (depth_ >= notPacked_) TreeAccess::pack(*node_, pages_);
            notPacked_ = std::min(notPacked_, depth_);
            isDone = node_ == node;
            CNode* const parent = node_ == &root_ ? nullptr : node_->GetParent();
            if (parent != nullptr) TreeAccess::addChildSize(*parent, TreeAccess::sizeOfPacked(*node_));
            node_ = parent;
        }
    }

    /// None of the open nodes.
    void cannotPack() { notPacked_ = depth_ + 1; }

    CNode& root_;
    CNode* node_ = nullptr;  // the innermost open one
    const wchar_t*& at_;
    wchar_t separator_;
    const TreeErrorHandler& onError_;
    LineMarks marks_;
    MemoryPages pages_;
    Names names_{pages_};
    Indentation indentation_;
    std::size_t depth_ = 0;      // of node_, below the root
    std::size_t notPacked_ = 0;  // nodes at smaller depths cannot be packed any more
};

}  // namespace

bool readLeafText(const wchar_t*& at, wchar_t separator, LeafText& out) {
    const wchar_t* const first = at;
    while (*at != 0 && *at != separator && *at != L'\r' && *at != L'\n')
        ++at;
    if (*at == 0) return false;
    // Of an XML-like element the text up to the next tag is the value; of any other leaf it is the name.
    out = separator == L'<' ? LeafText{first, first, first, at} : LeafText{first, at, at, at};
    if (*at == separator) {
        if (separator == L'<') return true;
        out.value = ++at;
        while (*at != 0 && *at != L'\n' && !(at[0] == L'\r' && at[1] == L'\n'))
            ++at;
        out.valueEnd = at;
        skipLineEnd(at);
    } else if (*at == L'\r' && at[1] != L'\n') {
        ++at;
    } else {
        skipLineEnd(at);
    }
    return true;
}

bool readTreeText(CNode& root, const wchar_t*& at, wchar_t separator, const TreeErrorHandler& onError) {
    return TreeReader(root, at, separator, onError).read();
}

const wchar_t* treeErrorText(TreeError error) {
    switch (error) {
        case TreeError::kNoStartBracket:
            return L"Start bracket [ not found!";
        case TreeError::kEndInName:
            return L"EOF reached before end bracket ] found!";
        case TreeError::kEndInLeaf:
            return L"EOF reached before leaf complete!";
        case TreeError::kWrongEnd:
            return L"Wrong ending node!";
    }
    return L"";
}

}  // namespace orv

CExc::~CExc() = default;
CExcRead::~CExcRead() = default;

void CExcRead::raise(orv::TreeError error) {
    struct One : CExcRead {
        explicit One(orv::TreeError what) : CExcRead(orv::treeErrorText(what)) {}
        ~One() override = default;
    };
    static One all[] = {One(orv::TreeError::kNoStartBracket), One(orv::TreeError::kEndInName),
                        One(orv::TreeError::kEndInLeaf), One(orv::TreeError::kWrongEnd)};
    throw static_cast<CExcRead*>(&all[static_cast<std::size_t>(error)]);
}

int CTreeItem::SkipWhitespace(const wchar_t*& text) {
    if (text == nullptr) return 0;
    const wchar_t* const first = text;
    orv::skipSpace(text);
    return static_cast<int>(text - first);
}

std::size_t CLeaf::ReadFromMem(const wchar_t*& in, wchar_t separator) {
    if (in == nullptr) in = L"";
    const wchar_t* const first = in;
    orv::skipSpace(in);
    orv::LeafText text;
    if (!orv::readLeafText(in, separator, text)) CExcRead::raise(orv::TreeError::kEndInLeaf);
    if (separator != L'<') SetName(orv::textOf(text.name, text.nameEnd));
    writableValue() = orv::textOf(text.value, text.valueEnd);
    return static_cast<std::size_t>(in - first);
}

std::size_t CNode::ReadFromMem(const wchar_t*& in, wchar_t separator) {
    if (in == nullptr) in = L"";
    const wchar_t* const first = in;
    orv::TreeError found{};
    const auto keep = [&](orv::TreeError error, const wchar_t*, const CNode*) {
        found = error;
        return false;
    };
    if (!orv::readTreeText(*this, in, separator, keep)) CExcRead::raise(found);
    return static_cast<std::size_t>(in - first);
}
