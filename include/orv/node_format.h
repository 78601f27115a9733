// The bracketed node format: a tree of named nodes with ordered attributes, its text, files and clipboard form, and the
// packing of several values into one attribute value.
//
//     [PROJ]
//         Name:Hall 2
//         [ADR]
//             Street:Main Road 5
//         [ENDE_ADR]
//     [ENDE_PROJ]
//
// Rules of the family:
// - A node owns what its lists hold: its destructor destroys children and attributes. Null entries are skipped.
// - Nothing is escaped. A name or value with a line end or a bracket is written as it is, and does not read back;
//   orv::checkNodes tells beforehand. In packed values ":" is kept as U+00AE, LF as &n, CR as &r; a real U+00AE comes
//   back as ":", and "&" is not escaped.
// - Separator, line counter and both cursors of packed values are the process's: reading and packing are for one thread
//   at a time.
// - A level is the number of TABs before a node; -1, and everything below, means an unindented tree.
// - Depth costs memory, never stack. A failed allocation makes the file functions return false or null, and throws
//   std::bad_alloc elsewhere.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "orv/export.h"
#include "orv/framework/file.h"
#include "orv/framework/lists.h"
#include "orv/framework/string.h"
#include "orv/framework/time.h"

/// An attribute, and the packing of values into one: reset, set in order, flush; or reset, get in the same order.
class ORV_API CProAttBase {
  public:
    CProAttBase() = default;
    CProAttBase(const CString& attributeName, const CString& attributeValue)
        : name(attributeName), value(attributeValue) {}
    /// The library's own.
    CProAttBase(orv::AdoptedText attributeName, orv::AdoptedText attributeValue) noexcept
        : name(attributeName), value(attributeValue) {}
    /// Those that the library makes by the thousand share pages of memory; a host's own are on the heap.
    static void* operator new(std::size_t size);
    static void operator delete(void* attribute) noexcept;

    // ---- Packing: each value is followed by the separator ----
    static void setSubStringReset();
    /// Null and "" give an empty field.
    static void setSubString(const wchar_t* text);
    /// All three write the lower 32 bits as a signed number.
    static void setSubString(int number);
    static void setSubString(unsigned int number);
    static void setSubString(long number);
    /// As "%g" does: six significant digits.
    static void setSubString(const float& number);
    static void setSubString(const double& number);
    /// Upper-case hexadecimal digits of the 64-bit time.
    static void setSubString(CTime& time);
    /// As setSubString, but null gives no field at all.
    static void setSubStringTR(const wchar_t* text);
    /// What was packed becomes this attribute's value, and packing starts anew.
    void setSubStringFlush();

    // ---- Unpacking: the text must live as long as it is read ----
    /// Null counts as "".
    static void getSubStringReset(const wchar_t* text);
    /// The next field, decoded; "" at the end. Behind U+2248, or within _TR(...), it is translated.
    static void intl_getSubString(CString& field);
    // A field "?" leaves every target alone; an empty one does too, unless `force`.
    /// The leading 32-bit decimal number, 0 when there is none.
    static void getSubString(int& number, bool force = false);
    static void getSubString(unsigned int& number, bool force = false);
    static void getSubString(long& number, bool force = false);
    static void getSubString(unsigned long& number, bool force = false);
    static void getSubString(bool& flag, bool force = false);
    /// "," counts as "."; rounded to 10 decimals (not where that would overflow).
    static void getSubString(float& number, bool force = false);
    static void getSubString(double& number, bool force = false);
    static void getSubString(CString& text, bool force = false);
    /// The leading hexadecimal digits.
    static void getSubString(CTime& time, bool force = false);

    CString name;
    CString value;
};

class ORV_API CProNodeBase {
  public:
    CProNodeBase() = default;
    explicit CProNodeBase(const wchar_t* nodeName) : name(nodeName) {}
    CProNodeBase(const CProNodeBase& other) : CProNodeBase() { *this = other; }
    static void* operator new(std::size_t size);
    static void operator delete(void* node) noexcept;
    ~CProNodeBase();
    /// Copies the name and appends deep copies of children and attributes to what this node has. `other` may be in this
    /// tree; itself changes nothing.
    CProNodeBase& operator=(const CProNodeBase& other);

    // ---- Editing ----
    // What is added belongs to this node. Null is returned and nothing added.
    void SetName(const CString& nodeName) { name = nodeName; }
    CProNodeBase* AddChild(CProNodeBase* node);
    CProNodeBase* AddChild(const CString& nodeName);
    CProAttBase* AddAttr(CProAttBase* attribute);
    CProAttBase* AddAttr(const CString& attributeName, const CString& attributeValue);
    /// Behind `after`; at the head when that is null or not in the list.
    CProNodeBase* InsertChild(CProNodeBase* node, CProNodeBase* after);
    CProNodeBase* InsertChild(const CString& nodeName, CProNodeBase* after);
    CProAttBase* InsertAttr(CProAttBase* attribute, CProAttBase* after);
    CProAttBase* InsertAttr(const CString& attributeName, const CString& attributeValue, CProAttBase* after);
    /// Takes an entry out, and destroys it unless `keep`. False when it is not in the list.
    bool DeleteChild(CProNodeBase* node, bool keep);
    bool DeleteAttr(CProAttBase* attribute, bool keep);
    /// Empties the list; the entries are not destroyed and belong to the caller.
    void DeleteAllChildren() { children.RemoveAll(); }
    void DeleteAllAttrs() { attributes.RemoveAll(); }
    /// Neighbours change places. Otherwise both are taken out, then `a` goes behind what preceded b and b behind what
    /// preceded a, or to the tail where nothing did:
    ///   x a y b, (a, b) => x b y a     a x b, (a, b) => x a b     x b y, (null, b) => b x y     a x, (a, null) => x a
    /// Nothing happens when a given entry is not in the list, both are null or both are the same.
    void ExchangeChilds(CProNodeBase* a, CProNodeBase* b);
    void ExchangeAttrs(CProAttBase* a, CProAttBase* b);

    // ---- Finding: null when there is none; names as they are written, a null name is none ----
    POSITION GetPositionOfChild(const CProNodeBase* node) const;
    POSITION GetPositionOfAttr(const CProAttBase* attribute) const;
    CProNodeBase* findChild(int index) const;
    CProAttBase* findAttr(int index) const;
    CProNodeBase* findChild(const wchar_t* nodeName) const;
    /// The first child of that name behind `cursor` (null: from the start), which then is the result.
    CProNodeBase* findChild(const wchar_t* nodeName, CProNodeBase*& cursor) const;
    /// The first attribute of that name behind `after`.
    CProAttBase* findAttr(const wchar_t* attributeName, CProAttBase* after = nullptr) const;
    int NrOfChildren() const { return static_cast<int>(children.GetCount()); }
    int NrOfAttrs() const { return static_cast<int>(attributes.GetCount()); }

    // ---- Text ----
    /// The characters that WriteToMem writes, the closing NUL not counted.
    std::size_t getSize(int level) const;
    /// Writes into a buffer of getSize(level) + 1 characters; returns the place of the closing NUL.
    wchar_t* WriteToMem(wchar_t* buffer, int level) const;
    /// `out` becomes an array that the caller frees by delete[]; null and false without memory. `scrambled` has no
    /// meaning here.
    bool WriteToString(wchar_t*& out, bool scrambled, bool indented) const;
    /// Reads a NUL-terminated text; the name is replaced, children and attributes are appended. Returns the place
    /// behind the end marker, or null. Errors are shown (orv::showMessage); a wrong end marker is shown and closes the
    /// node.
    const wchar_t* ReadFromMem(const wchar_t* text, int line);
    /// A new tree that the caller owns, or null. `length` and `scrambled` have no meaning here: a NUL ends the text.
    static CProNodeBase* ReadFromString(const wchar_t* text, int length, bool scrambled);

    // ---- Files: UTF-8 with a mark and a closing 00 byte; 3 is added to each byte of a scrambled one ----
    bool WriteToFile(CFile* file, bool scrambled, bool indented) const;
    /// Creates or replaces a file, with exclusive sharing.
    bool WriteToFile(const CString& path, bool scrambled, bool indented) const;
    /// Reads UTF-8 or UTF-16LE by its mark, anything else as Windows-1252. A new tree that the caller owns, or null.
    static CProNodeBase* ReadFromFile(CFile* file, bool scrambled);
    static CProNodeBase* ReadFromFile(const CString& path, bool scrambled);

    // ---- Clipboard (Windows only) ----
    /// Puts the text on the clipboard, in wide characters, as the plain text format (number 1) or as "PRONODE". False
    /// when the clipboard cannot be had.
    bool ClipboardOut(bool asText, bool indented) const;
    /// The tree in the first present of "PRONODE", "UPRONODE" and the plain text format, or null.
    static CProNodeBase* ClipboardIn(bool unused);

    CString name;
    CList<CProNodeBase*, CProNodeBase*> children{10};
    CList<CProAttBase*, CProAttBase*> attributes{10};
};

namespace orv {

/// Sets the character between attribute name and value (":" at the start) and returns the one before.
ORV_API wchar_t exchangeNodeSeparator(wchar_t separator);

enum class NodeError { kNoBeginningNode, kNoEndingBracket, kUnexpectedEnd, kWrongEndingNode };

/// The message that readers show for an error, without its line: "No Beginning Node found", ...
ORV_API const wchar_t* nodeErrorText(NodeError error);

struct NodeReadError {
    NodeError error;
    int line;      // line ends before the place, as readers count them
    int column;    // from 0, in characters; behind two line ends that count as one, the second begins no line
    CString path;  // names of the open nodes, "PROJ/ADR"; of very deep ones the last, behind "..."
};

/// Reads like CProNodeBase::ReadFromString, but shows nothing: all errors are listed (the first thousand). The tree is
/// null after an error that ends the reading.
ORV_API std::unique_ptr<CProNodeBase> readNodes(const wchar_t* text, std::vector<NodeReadError>& errors);

struct NodeProblem {
    enum class Kind {
        kNodeName,        // a control character, a space or "]" in it, or a child's begins with "ENDE_"
        kAttributeName,   // a line end, NUL or the separator in it, or "[" or a control character at its start
        kAttributeValue,  // a line end or NUL in it
        kLoneSurrogate    // lost in a file, though not in a text
    };
    Kind kind;
    CString path;  // of the node, as in NodeReadError
    CString name;  // of the attribute, or of the node for kNodeName
};

/// What would not read back as it is with the present separator (the first thousand).
ORV_API std::vector<NodeProblem> checkNodes(const CProNodeBase& root);

/// Equal names, values and order everywhere.
ORV_API bool equalNodes(const CProNodeBase& a, const CProNodeBase& b);

}  // namespace orv
