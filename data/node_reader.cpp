#include <vector>

#include "data/indentation.h"
#include "data/line_marks.h"
#include "data/names.h"
#include "data/node_memory.h"
#include "data/node_state.h"
#include "orv/messages.h"
#include "orv/wide.h"

namespace {

using orv::NodeError;
using orv::WideView;

constexpr WideView kEndPrefix = L"[ENDE_";

bool isLineEnd(wchar_t ch) { return ch == L'\r' || ch == L'\n'; }

WideView between(const wchar_t* begin, const wchar_t* end) { return {begin, static_cast<std::size_t>(end - begin)}; }

/// Reads one node with all that is in it. Report is called as report(error, line, column, open nodes).
template <class Report>
class Reader {
  public:
    Reader(const wchar_t* text, int line, Report report)
        : at_(text != nullptr ? text : L""),
          lineStart_(at_),
          line_(line),
          separator_(orv::nodeSeparator()),
          report_(report),
          marks_(at_, separator_, L'\r') {}

    const wchar_t* read(CProNodeBase& root) {
        while (*at_ != L'[') {
            if (*at_ == 0) return fail(NodeError::kNoBeginningNode);
            skipCharacter();
        }
        if (!begin(root)) return nullptr;
        while (!open_.empty()) {
            if (at_[0] == L'\r' && at_[1] == L'\n') skipCharacter();
            const wchar_t* const mark = marks_.from(at_);
            at_ = indentation_.behind(at_, mark);
            while (*at_ < 0x20) {
                if (*at_ == 0) return fail(NodeError::kUnexpectedEnd);
                skipCharacter();
            }
            if (*at_ != L'[') {
                readAttribute(*open_.back(), mark >= at_ ? mark : marks_.from(at_));
            } else if (marks_.isAt(at_, kEndPrefix)) {
                readEnd();
            } else if (!begin(orv::addNewChild(pages_, *open_.back(), const_cast<wchar_t*>(orv::emptyString())))) {
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
        node.name = CString(orv::StringAccess::adopt(names_.get(between(first, at_))));
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

    void readAttribute(CProNodeBase& node, const wchar_t* mark) {
        // ODDITY(node-empty-attribute): a line without a separator is kept as an attribute without name and value.
        // Pinned by Nodes.Reads.
        if (*mark != separator_ || *mark == 0) {
            orv::addNewAttribute(pages_, node, const_cast<wchar_t*>(orv::emptyString()), {}, 0);
            at_ = mark;
            return;
        }
        const wchar_t* const value = mark + 1;
        const wchar_t* end = marks_.following();
        while (*end != 0 && !isLineEnd(*end))
            end = marks_.following();
        orv::addNewAttribute(pages_, node, names_.get(between(at_, mark)), between(value, end), marks_.seenFrom(value));
        at_ = end;
    }

    /// At "[ENDE_": closes the innermost node, whatever the marker names.
    void readEnd() {
        const CString& name = open_.back()->name;
        const auto length = static_cast<std::size_t>(name.GetLength());
        const wchar_t* rest = at_ + kEndPrefix.size();
        const bool isRight = marks_.isAt(rest, {name.GetString(), length}) && rest[length] == L']';
        // ODDITY(node-wrong-end): a wrong marker is reported and closes the node all the same; reading goes on behind
        // as many characters as the right one has. Pinned by Nodes.ErrorsTellLines.
        if (isRight) {
            at_ = rest + length + 1;
        } else {
            fail(NodeError::kWrongEndingNode);
            for (std::size_t left = kEndPrefix.size() + length + 1; left > 0 && *at_ != 0; --left)
                ++at_;
        }
        open_.pop_back();
    }

    const wchar_t* at_;
    const wchar_t* lineStart_;
    int line_;
    wchar_t separator_;
    Report report_;
    orv::LineMarks marks_;
    orv::Indentation indentation_;
    orv::MemoryPages pages_;
    orv::Names names_{pages_};
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
