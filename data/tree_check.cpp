// Reading with all errors listed, and what would not read back.
#include <algorithm>

#include "data/tree_links.h"
#include "data/tree_reader.h"
#include "framework/characters.h"
#include "orv/tree_tools.h"

namespace orv {
namespace {

constexpr std::size_t kMostReports = 1000;
constexpr int kMostNamesInPath = 20;

/// The names from the root down to a node, for people.
CString shortPath(const CNode* node, const CNode& root) {
    CString path;
    for (int names = 0; node != nullptr; ++names) {
        if (names == kMostNamesInPath) return L".../" + path;
        path = path.IsEmpty() ? node->GetName() : node->GetName() + L"/" + path;
        node = node == &root ? nullptr : node->GetParent();
    }
    return path;
}

/// Lines and columns of places that only go forward.
class Lines {
  public:
    explicit Lines(const wchar_t* text) : at_(text), lineStart_(text) {}
    void goTo(const wchar_t* place) {
        while (at_ < place) {
            const bool isEnd = *at_ == L'\n' || (*at_ == L'\r' && at_[1] != L'\n');
            ++at_;
            if (!isEnd) continue;
            ++line_;
            lineStart_ = at_;
        }
    }
    int line() const { return line_; }
    int column() const { return static_cast<int>(at_ - lineStart_) + 1; }

  private:
    const wchar_t* at_;
    const wchar_t* lineStart_;
    int line_ = 1;
};

bool hasLoneSurrogate(WideView text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if ((text[i] & 0xF800) != 0xD800) continue;
        const bool isPair = text[i] < 0xDC00 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
        if (!isPair) return true;
        ++i;
    }
    return false;
}

bool has(WideView text, wchar_t ch) { return text.find(ch) != WideView::npos; }
bool hasAny(WideView text, WideView characters) { return text.find_first_of(characters) != WideView::npos; }

constexpr WideView kNul(L"\0", 1);
constexpr WideView kNulOrLineEnds(L"\0\r\n", 3);

class Checker {
  public:
    Checker(const CNode& root, wchar_t separator) : root_(root), separator_(separator) {}

    std::vector<TreeProblem> run() {
        walkBranch(
            root_, [this](const CNode& node) { checkNode(node); }, [](const CNode&) {});
        if (root_.GetSizeOfBranch(0) > kLongestText) add(Kind::kDepth, root_, root_);
        return std::move(problems_);
    }

  private:
    using Kind = TreeProblem::Kind;

    void checkNode(const CNode& node) {
        const WideView name = viewOf(node.GetName());
        const bool isXml = node.isSimpleXML();
        const CNode* parent = &node == &root_ ? nullptr : node.GetParent();
        const bool looksLikeEnd = isXml ? name.starts_with(L'/') : name == L"/" || name.starts_with(L"ENDE_");
        if (hasAny(name, kNul) || has(name, isXml ? L'>' : L']') || (parent != nullptr && looksLikeEnd)) {
            add(Kind::kNodeName, node, node);
        }
        if (hasLoneSurrogate(name)) add(Kind::kLoneSurrogate, node, node);
        if (parent != nullptr && parent->isSimpleXML() != isXml) add(Kind::kForm, node, node);
        const bool isMixed = node.NrOfLeaves() > 1 || (node.NrOfLeaves() == 1 && node.NrOfChildren() > 0);
        if (isXml && isMixed) add(Kind::kForm, node, node);
        for (const CLeaf& leaf : leavesOf(node))
            checkLeaf(node, leaf, isXml);
    }

    void checkLeaf(const CNode& node, const CLeaf& leaf, bool isXml) {
        const WideView name = viewOf(leaf.GetName());
        const WideView value = viewOf(leaf.GetRawData());
        if (isXml) {
            if (!name.empty()) add(Kind::kLeafName, node, leaf);
            if (value.empty() || isSpace(value[0]) || has(value, L'<') || hasAny(value, kNulOrLineEnds)) {
                add(Kind::kLeafValue, node, leaf);
            }
        } else {
            const wchar_t first = name.empty() ? separator_ : name[0];
            const bool noSeparator = has(kNulOrLineEnds, separator_) || separator_ == L'<';
            if (noSeparator || first == L'[' || isSpace(first) || has(name, separator_) ||
                hasAny(name, kNulOrLineEnds)) {
                add(Kind::kLeafName, node, leaf);
            }
            if (hasAny(value, kNul) || has(value, L'\n')) add(Kind::kLeafValue, node, leaf);
        }
        if (hasLoneSurrogate(name) || hasLoneSurrogate(value)) add(Kind::kLoneSurrogate, node, leaf);
    }

    void add(Kind kind, const CNode& node, const CTreeItem& item) {
        if (problems_.size() < kMostReports) problems_.push_back({kind, shortPath(&node, root_), item.GetName()});
    }

    const CNode& root_;
    wchar_t separator_;
    std::vector<TreeProblem> problems_;
};

}  // namespace

std::unique_ptr<CNode> readTree(const wchar_t* text, wchar_t separator, std::vector<TreeReadError>& errors) {
    errors.clear();
    if (text == nullptr) text = L"";
    auto root = std::make_unique<CNode>();
    Lines lines(text);
    const auto list = [&](TreeError error, const wchar_t* place, const CNode* node) {
        lines.goTo(place);
        errors.push_back({error, lines.line(), lines.column(), shortPath(node, *root)});
        return errors.size() < kMostReports;
    };
    const wchar_t* at = text;
    if (!readTreeText(*root, at, separator, list)) return nullptr;
    return root;
}

std::vector<TreeProblem> checkTree(const CNode& root, wchar_t separator) { return Checker(root, separator).run(); }

}  // namespace orv
