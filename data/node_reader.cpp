#include <vector>

#include "data/node_state.h"
#include "orv/messages.h"
#include "orv/wide.h"

namespace {

using orv::NodeError;
using orv::WideView;

constexpr WideView kEndPrefix = L"[ENDE_";

bool isLineEnd(wchar_t ch) { return ch == L'\r' || ch == L'\n'; }

CString textOf(const wchar_t* begin, const wchar_t* end) { return {begin, static_cast<int>(end - begin)}; }

bool startsWith(const wchar_t* text, WideView prefix) {
    for (const wchar_t ch : prefix) {
        if (*text == 0 || *text++ != ch) return false;
    }
    return true;
}

/// Reads one node with all that is in it. Report is called as report(error, line, column, open nodes).
template <class Report>
class Reader {
  public:
    Reader(const wchar_t* text, int line, Report report)
        : at_(text != nullptr ? text : L""),
          lineStart_(at_),
          line_(line),
          separator_(orv::nodeSeparator()),
          report_(report) {}

    const wchar_t* read(CProNodeBase& root) {
        while (*at_ != L'[') {
            if (*at_ == 0) return fail(NodeError::kNoBeginningNode);
            skipCharacter();
        }
        if (!begin(root)) return nullptr;
        while (!open_.empty()) {
            while (*at_ < 0x20) {
                if (*at_ == 0) return fail(NodeError::kUnexpectedEnd);
                skipCharacter();
            }
            if (*at_ != L'[') {
                readAttribute(*open_.back());
            } else if (startsWith(at_, kEndPrefix)) {
                readEnd();
            } else if (!begin(*open_.back()->AddChild(CString()))) {
                return nullptr;
            }
        }
        return at_;
    }

  private:
    const wchar_t* fail(NodeError error) {
        report_(error, line_, static_cast<int>(at_ - lineStart_), open_);
        return nullptr;
    }

    void skipCharacter() {
        if (!isLineEnd(*at_++)) return;
        // ODDITY(node-line-pairs): two line ends in a row count as one line, whichever they are, so that a blank line
        // between LFs is not counted. Pinned by Nodes.ErrorsTellLines.
        if (isLineEnd(*at_)) ++at_;
        ++line_;
        lineStart_ = at_;
    }

    /// At the "[" of a begin line.
    bool begin(CProNodeBase& node) {
        const wchar_t* first = ++at_;
        while (*at_ != L']' && *at_ >= 0x21)
            ++at_;
        node.name = textOf(first, at_);
        if (*at_ < 0x20) {
            fail(NodeError::kNoEndingBracket);
            return false;
        }
        // ODDITY(node-name-space): a space ends the name too, and the rest of the line is read as an attribute.
        // Pinned by Nodes.Reads.
        ++at_;
        open_.push_back(&node);
        return true;
    }

    void readAttribute(CProNodeBase& node) {
        // ODDITY(node-empty-attribute): a line without a separator is kept as an attribute without name and value.
        // Pinned by Nodes.Reads.
        CProAttBase* attribute = node.AddAttr(CString(), CString());
        const wchar_t* first = at_;
        while (*at_ != separator_ || *at_ == 0) {
            if (*at_ == 0 || isLineEnd(*at_)) return;
            ++at_;
        }
        attribute->name = textOf(first, at_);
        const wchar_t* value = ++at_;
        while (*at_ != 0 && !isLineEnd(*at_))
            ++at_;
        attribute->value = textOf(value, at_);
    }

    /// At "[ENDE_": closes the innermost node, whatever the marker names.
    void readEnd() {
        const CString& name = open_.back()->name;
        const auto length = static_cast<std::size_t>(name.GetLength());
        const wchar_t* rest = at_ + kEndPrefix.size();
        const bool isRight = startsWith(rest, {name.GetString(), length}) && rest[length] == L']';
        // ODDITY(node-wrong-end): a wrong marker is reported and closes the node all the same; reading goes on behind
        // as many characters as the right one has. Pinned by Nodes.ErrorsTellLines.
        if (!isRight) fail(NodeError::kWrongEndingNode);
        for (std::size_t left = kEndPrefix.size() + length + 1; left > 0 && *at_ != 0; --left)
            ++at_;
        open_.pop_back();
    }

    const wchar_t* at_;
    const wchar_t* lineStart_;
    int line_;
    wchar_t separator_;
    Report report_;
    std::vector<CProNodeBase*> open_;
};

void show(NodeError error, int line) {
    CString message;
    message.Format(L"Line: %d\nError: %s", line, orv::nodeErrorText(error));
    orv::showMessage(orv::MessageKind::kError, L"Internal ProNode-Error", message);
}

}  // namespace

const wchar_t* CProNodeBase::ReadFromMem(const wchar_t* text, int line) {
    const auto report = [](NodeError error, int at, int, const auto&) { show(error, at); };
    return Reader(text, line, report).read(*this);
}

CProNodeBase* CProNodeBase::ReadFromString(const wchar_t* text, int /*length*/, bool /*scrambled*/) {
    auto root = std::make_unique<CProNodeBase>();
    return root->ReadFromMem(text, 0) != nullptr ? root.release() : nullptr;
}

namespace orv {

const wchar_t* nodeErrorText(NodeError error) {
    switch (error) {
        case NodeError::kNoBeginningNode:
            return L"No Beginning Node found";
        case NodeError::kNoEndingBracket:
            return L"Node without Ending-bracket found";
        case NodeError::kUnexpectedEnd:
            return L"Unexpected EOF";
        case NodeError::kWrongEndingNode:
            return L"Wrong Ending-Node found.";
    }
    return L"";
}

std::unique_ptr<CProNodeBase> readNodes(const wchar_t* text, std::vector<NodeReadError>& errors) {
    errors.clear();
    auto root = std::make_unique<CProNodeBase>();
    const auto report = [&errors](NodeError error, int line, int column, const auto& open) {
        if (errors.size() < kMostReports) errors.push_back({error, line, column, nodePath(open)});
    };
    if (Reader(text, 0, report).read(*root) == nullptr) return nullptr;
    return root;
}

}  // namespace orv
