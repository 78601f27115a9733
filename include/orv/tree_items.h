// The data tree: nodes (CNode) that hold ordered leaves (CLeaf, a name with a value) and ordered child nodes.
//
//     [Room]                     <Room>
//         Area:12.5                  <Area>12.5</Area>
//         [Radiator]             </Room>
//             Type:22:600:1000
//         [ENDE_Radiator]
//     [ENDE_Room]
//
// Rules of the family:
// - A node owns what it holds and destroys it with itself. An item stands in one node at a time: adding it takes it out
//   of where it stood, destroying it too. Null is added nowhere, nor is a node to its own branch: the result is null.
// - A POSITION names an item and stays good until that item leaves its node. A null one gives null.
// - Names are compared exactly unless the function has a flag for that; null counts as "".
// - A leaf's value is a field record (records.h), ":" between the fields unless another separator is given; fields are
//   numbered from 1, and 0 means the first too. Nothing in names and raw values is escaped in the text, so that some
//   trees do not read back: orv::checkTree (tree_tools.h) tells beforehand.
// - Depth costs memory, never stack. Reading, writing and copying a branch are one walk over plain nodes and leaves;
//   what a derived class overrides counts for the item it is called for.
// - Readers throw CExcRead by pointer; the functions of TreeItems (tree_tools.h) catch it.
// - Not for several threads at once, even for reading: a node has cursors, and field walks share one per process.
#pragma once

#include <cstddef>
#include <cstdint>

#include "orv/export.h"
#include "orv/framework/arrays.h"
#include "orv/framework/exceptions.h"
#include "orv/framework/lists.h"
#include "orv/framework/string.h"
#include "orv/paths.h"

class CLeaf;
class CNode;

namespace orv {
struct TreeAccess;  // the library's own
class MemoryPages;

/// Why a text is no tree.
enum class TreeError { kNoStartBracket, kEndInName, kEndInLeaf, kWrongEnd };

/// "Start bracket [ not found!", "EOF reached before end bracket ] found!", "EOF reached before leaf complete!",
/// "Wrong ending node!".
ORV_API const wchar_t* treeErrorText(TreeError error);
}  // namespace orv

/// Base of the data tree's exceptions; thrown by pointer and given back by Delete(), as all of the framework's.
class ORV_API CExc : public CException {
  public:
    /// The message; lives as long as the process.
    const wchar_t* getText() const { return text_; }

  protected:
    explicit CExc(const wchar_t* text) : text_(text) {}
    ~CExc() override;

  private:
    const wchar_t* text_;
};

/// A text that is no tree. There is one object for each message.
class ORV_API CExcRead : public CExc {
  public:
    [[noreturn]] static void raise(orv::TreeError error);

  protected:
    using CExc::CExc;
    ~CExcRead() override;
};

/// What nodes and leaves have in common.
class ORV_API CTreeItem {
  public:
    explicit CTreeItem(const CString& name = CString()) : name_(name) {}
    /// Takes itself out of the node that it stands in.
    virtual ~CTreeItem();

    /// 1 for a node, anything else for a leaf.
    virtual int GetType() const = 0;
    /// The characters that WriteToMem writes, the closing NUL not counted. Levels below 0 are all the same: no TABs.
    virtual std::size_t GetSizeOfBranch(int level) const = 0;
    /// Writes at `out`, which has room for GetSizeOfBranch(level) + 1 characters, and moves it to the closing NUL.
    /// Returns the number of characters.
    virtual std::size_t WriteToMem(wchar_t*& out, int level, wchar_t separator) const = 0;
    /// Reads at `in`, a NUL-terminated text (null counts as ""), and moves it behind what was read. Returns the number
    /// of characters. Throws CExcRead*, with `in` at the error and what was read so far kept.
    virtual std::size_t ReadFromMem(const wchar_t*& in, wchar_t separator) = 0;
    /// Debug output: an outline on standard error.
    virtual void Dump(int level) const = 0;

    CTreeItem& operator=(const CTreeItem&) = delete;

    /// Items that the library makes by the thousand share pages of memory; a host's own are on the heap.
    static void* operator new(std::size_t size);
    static void operator delete(void* item) noexcept;

    const CString& GetName() const { return name_; }
    void SetName(const CString& name);
    /// Null for one that stands in none.
    CNode* GetParent() const { return parent_; }

    // ---- Clipboard (Windows only) ----
    /// The item's unindented text as "ORVETA_TREEITEM_NODE" or "ORVETA_TREEITEM_LEAF". False when the clipboard or
    /// memory cannot be had.
    bool WriteToClipBoard(wchar_t separator) const;
    /// A new item that the caller owns: the node, else the leaf that is there, or null. Throws as ReadFromMem does.
    static CTreeItem* ReadFromClipBoard(wchar_t separator);
    static bool IsClipboardAvailable();

    /// Moves `text` behind white space (every kind that Unicode knows among 16-bit characters); how many there were.
    static int SkipWhitespace(const wchar_t*& text);

  protected:
    CTreeItem(const CTreeItem& other) : name_(other.name_) {}
    explicit CTreeItem(orv::AdoptedText name) noexcept : name_(name) {}

  private:
    friend struct orv::TreeAccess;
    friend class CLeaf;
    friend class CNode;

    /// Before anything of the item changes.
    void willChange() const;

    CString name_;
    CTreeItem* previous_ = nullptr;
    CTreeItem* next_ = nullptr;
    CNode* parent_ = nullptr;
};

/// A name with a value.
class ORV_API CLeaf : public CTreeItem {
  public:
    explicit CLeaf(const CString& name = CString(), const CString& rawValue = CString())
        : CTreeItem(name), value_(rawValue) {}
    CLeaf(const CLeaf& other) = default;
    ~CLeaf() override;
    /// Copies name and value; the leaf stays where it stands.
    CLeaf& operator=(const CLeaf& other);

    int GetType() const override { return 2; }
    std::size_t GetSizeOfBranch(int level) const override;
    std::size_t WriteToMem(wchar_t*& out, int level, wchar_t separator) const override;
    /// One line, white space before it skipped: name, separator, value. Without a separator the line is the name. With
    /// the separator "<" the text before it, or before the line's end, is the value and the name stays.
    std::size_t ReadFromMem(const wchar_t*& in, wchar_t separator) override;
    void Dump(int level) const override;

    // ---- The value as it is stored ----
    const CString& GetRawData() const { return value_; }
    void SetRawData(const CString& rawValue) { writableValue() = rawValue; }

    // ---- One field ----
    /// Whether the field is there and not empty; else `out` is "". Numbers below 1 name no field here.
    bool GetValue(int index, CString& out, wchar_t separator = L':') const;
    /// The text, decoded, in one buffer of the process that the next call reuses. `defaultValue` where the record has
    /// fewer fields or the value is empty.
    const wchar_t* GetStrLeafValuePtr(int index, wchar_t separator = L':', const wchar_t* defaultValue = L"") const;
    /// The leading number (",", too, is a decimal sign), 0 when there is none; the default also for an empty field.
    int GetIntLeafValue(int index, wchar_t separator = L':', int defaultValue = 0) const;
    double GetDblLeafValue(int index, wchar_t separator = L':', double defaultValue = 0) const;
    /// Replaces one field, appending empty ones before it where the record is shorter. The others keep their texts.
    void SetStrLeafValue(int index, const wchar_t* value, wchar_t separator = L':');
    void SetIntLeafValue(int index, int value, wchar_t separator = L':');
    /// The shortest text that reads back the same; nothing for what is no number.
    void SetDblLeafValue(int index, double value, wchar_t separator = L':');

    // ---- All fields in order; one leaf at a time, since all share the cursor of orvSubStrUtil ----
    /// False when the value is empty.
    bool InitGetValues(wchar_t separator = L':') const;
    /// True when there was a field; a record that ends in its separator has one more, empty, field.
    bool GetFirstValue(CString& out) const;
    bool GetNextValue(CString& out) const;
    void InitSetValues(wchar_t separator = L':');
    /// Begins the record anew.
    void SetFirstValue(const wchar_t* value);
    void SetNextValue(const wchar_t* value);
    /// Adds the last field and stores the record.
    void SetLastValue(const wchar_t* value);
    /// Stores the record, unless SetLastValue has.
    void ExitSetValues();

    /// All fields, replacing what the array held; none of an empty value.
    void GetStrValueArray(CStringArray& out, wchar_t separator = L':') const;
    void GetIntValueArray(CArray<int, int>& out, wchar_t separator = L':') const;
    void GetDblValueArray(CArray<double, double>& out, wchar_t separator = L':') const;

    // ---- The value as one field: decoded or escaped, separators in it stay ----
    CString GetOnlyValue(wchar_t separator = L':') const;
    int GetOnlyValueI(wchar_t separator = L':', int defaultValue = 0) const;
    double GetOnlyValueD(wchar_t separator = L':', double defaultValue = 0) const;
    void SetOnlyValue(const wchar_t* value, wchar_t separator = L':');
    void SetOnlyValue(int value, wchar_t separator = L':');
    void SetOnlyValue(double value, wchar_t separator = L':');

  private:
    friend struct orv::TreeAccess;

    CLeaf(orv::AdoptedText name, orv::AdoptedText rawValue) noexcept : CTreeItem(name), value_(rawValue) {}

    CString& writableValue() {
        willChange();
        return value_;
    }

    CString value_;
};

namespace orv {

/// The items of one kind in a node, for a range-based for. The item at hand may leave its node meanwhile.
template <class Item>
class ItemRange {
  public:
    class Iterator {
      public:
        explicit Iterator(Item* item) : item_(item), next_(following(item)) {}
        Item& operator*() const { return *item_; }
        Iterator& operator++() {
            item_ = next_;
            next_ = following(item_);
            return *this;
        }
        bool operator==(const Iterator& other) const { return item_ == other.item_; }

      private:
        static Item* following(Item* item);

        Item* item_;
        Item* next_;
    };

    explicit ItemRange(Item* first) : first_(first) {}
    Iterator begin() const { return Iterator(first_); }
    Iterator end() const { return Iterator(nullptr); }

  private:
    Item* first_;
};

/// What text takes, apart from the level at which it stands.
struct TextSize {
    std::size_t characters = 0;  // but for the TABs that indent it
    std::size_t lines = 0;       // that are indented
    std::size_t tabs = 0;        // at level 0; one more a line for each level below
};

/// The ends of a chain of items and how many it has.
struct ItemChain {
    CTreeItem* first = nullptr;
    CTreeItem* last = nullptr;
    int count = 0;
};

}  // namespace orv

class ORV_API CNode : public CTreeItem {
  public:
    explicit CNode(const CString& name = CString()) : CTreeItem(name) {}
    /// A deep copy, of plain nodes and leaves, that stands in no node.
    CNode(const CNode& other);
    ~CNode() override;
    /// Replaces name, kind, leaves and children by deep copies. `other` may be in this tree; the node stays where it
    /// stands.
    CNode& operator=(const CNode& other);

    int GetType() const override { return 1; }
    std::size_t GetSizeOfBranch(int level) const override;
    std::size_t WriteToMem(wchar_t*& out, int level, wchar_t separator) const override;
    /// Replaces the name and appends leaves and children. "[/]" closes a bracketed node without naming it. A node reads
    /// children of its own kind alone: in a bracketed one "<", in an XML-like one "[" begins a leaf.
    std::size_t ReadFromMem(const wchar_t*& in, wchar_t separator) override;
    void Dump(int level) const override;

    /// Whether this node (not its children) is written in the XML-like form. Reading sets it by what was read.
    void setSimpleXML(bool isSimpleXml) {
        willChange();
        isSimpleXml_ = isSimpleXml;
    }
    bool isSimpleXML() const { return isSimpleXml_; }

    // ---- Text and files ----
    /// The whole text, from level 0 or without TABs; `scrambled`, `unicode` and `codePage` have no meaning here. False,
    /// with "", when it is longer than a text can be.
    bool WriteToString(CString& out, bool scrambled, bool indented, bool unicode, unsigned int codePage,
                       wchar_t separator = L':') const;
    /// Always with ":" between names and values. The other arguments are those of orvStrUtil::writeStringBufferToFile,
    /// but a `codePage` of 0 in a unicode file means 65001.
    bool WriteToFile(const wchar_t* path, bool scrambled, bool indented, bool unicode, unsigned int codePage,
                     wchar_t separator = L':') const;
    /// A new tree that the caller owns, from a file as orvStrUtil::readStringBufferFromFile reads it; null when it
    /// cannot be read. Throws CExcRead*. What is not null receives whether the file has a Unicode mark, and whether two
    /// TABs stand side by side in the text.
    static CNode* ReadFromFile(const CFilePath& path, bool scrambled, wchar_t separator, bool* isUnicode,
                               bool* isIndented, unsigned int codePage);
    static CNode* ReadFromFile(const CFilePath& path, bool scrambled, wchar_t separator, bool* isUnicode,
                               unsigned int codePage);
    /// Windows only: the tree's text on the clipboard, as Unicode text or as "UPRONODE". False when the clipboard or
    /// memory cannot be had.
    bool ClipboardOut(bool asText, bool indented) const;

    // ---- Editing ----
    CNode* AddChild(CNode* node);
    CNode* AddChild(const CString& name);
    /// The first child of that name, else a new one.
    CNode* AddChildUnique(const CString& name);
    CLeaf* AddLeaf(CLeaf* leaf);
    /// The text becomes one escaped field, or with `raw` the value as it is. Doubles as SetDblLeafValue writes them.
    CLeaf* AddLeaf(const CString& name, const wchar_t* value, bool raw = false);
    CLeaf* AddLeaf(const CString& name, int value, bool raw = false);
    CLeaf* AddLeaf(const CString& name, double value, bool raw = false);
    /// Behind `after`; at the head when that is null or not in this node.
    CNode* InsertChild(CNode* node, CNode* after);
    CNode* InsertChild(const CString& name, CNode* after);
    CLeaf* InsertLeaf(CLeaf* leaf, CLeaf* after);
    CLeaf* InsertLeaf(const CString& name, const wchar_t* value, CLeaf* after, bool raw = false);
    /// Takes an item out, and destroys it unless `keep`. False when it does not stand in this node.
    bool DeleteChild(CNode* node, bool keep = false);
    bool DeleteLeaf(CLeaf* leaf, bool keep = false);
    /// With `keep` the items belong to the caller, who must know them.
    void DeleteAllChildren(bool keep = false);
    void DeleteAllLeaves(bool keep = false);
    /// Neighbours change places. Otherwise both are taken out, then `a` goes behind what preceded b and b behind what
    /// preceded a, or to the tail where nothing did:
    ///   x a y b, (a, b) => x b y a     a x b, (a, b) => x a b     x b y, (null, b) => b x y     a x, (a, null) => x a
    /// Nothing happens when a given item is not in this node, both are null or both are the same.
    void ExchangeChildren(CNode* a, CNode* b);
    void ExchangeLeaves(CLeaf* a, CLeaf* b);

    // ---- Finding: null when there is none ----
    CNode* GetChild(int index) const;
    CNode* GetChild(const wchar_t* name, bool ignoreCase = false) const;
    /// With `create`, a child that is not there is added.
    CNode* GetChild(const wchar_t* name, bool ignoreCase, bool create);
    CLeaf* GetLeaf(int index) const;
    CLeaf* GetLeaf(const wchar_t* name, bool ignoreCase = false) const;
    /// Behind `after` (null: from the start; one that is not in this node: null).
    CNode* FindChild(const wchar_t* name, const CNode* after = nullptr, bool ignoreCase = false) const;
    CLeaf* FindLeaf(const wchar_t* name, const CLeaf* after = nullptr, bool ignoreCase = false) const;
    /// The first child of that name, behind `start`, in which some leaf of that name has that value: raw, or decoded as
    /// one field.
    CNode* FindChildByAttributeValue(const wchar_t* childName, const wchar_t* leafName, const wchar_t* leafValue,
                                     const CNode* start = nullptr) const;
    int NrOfChildren() const { return children_.count; }
    int NrOfLeaves() const { return leaves_.count; }
    /// Whether `node` stands in the branch of `ancestor`, at any depth; a node is no child of itself.
    static bool IsChildOf(const CNode* node, const CNode* ancestor);

    // ---- Walking by a position: gives the item there and moves on to the next (previous) one, or to null ----
    POSITION GetFirstChildPos() const { return position(children_.first); }
    POSITION GetLastChildPos() const { return position(children_.last); }
    /// Null for an item that does not stand in this node, or has none beside it.
    POSITION GetChildPos(const CNode* node) const;
    POSITION GetChildPosNextTo(const CNode* node) const;
    POSITION GetChildPosPrevTo(const CNode* node) const;
    CNode* GetFirstChild(POSITION& at) const;
    CNode* GetLastChild(POSITION& at) const;
    CNode* GetNextChild(POSITION& at) const;
    CNode* GetPrevChild(POSITION& at) const;
    POSITION GetFirstLeafPos() const { return position(leaves_.first); }
    POSITION GetLastLeafPos() const { return position(leaves_.last); }
    POSITION GetLeafPos(const CLeaf* leaf) const;
    CLeaf* GetFirstLeaf(POSITION& at) const;
    CLeaf* GetLastLeaf(POSITION& at) const;
    CLeaf* GetNextLeaf(POSITION& at) const;
    CLeaf* GetPrevLeaf(POSITION& at) const;

    // ---- The same by the node's own cursor, which nothing else in the library moves. It steps on when its item leaves
    // the node, is null behind an end, and a copy's is null ----
    CNode* GetFirstChild() const { return GetFirstChild(childCursor_); }
    CNode* GetLastChild() const { return GetLastChild(childCursor_); }
    CNode* GetNextChild() const { return GetNextChild(childCursor_); }
    CNode* GetPrevChild() const { return GetPrevChild(childCursor_); }
    CLeaf* GetFirstLeaf() const { return GetFirstLeaf(leafCursor_); }
    CLeaf* GetLastLeaf() const { return GetLastLeaf(leafCursor_); }
    CLeaf* GetNextLeaf() const { return GetNextLeaf(leafCursor_); }
    CLeaf* GetPrevLeaf() const { return GetPrevLeaf(leafCursor_); }

    // ---- Values by path: see CLeaf. Null or "" as the child's name means this node ----
    const wchar_t* GetStrLeafValuePtr(const wchar_t* childName, const wchar_t* leafName, int index = 1,
                                      wchar_t separator = L':', const wchar_t* defaultValue = L"") const;
    int GetIntLeafValue(const wchar_t* childName, const wchar_t* leafName, int index = 1, wchar_t separator = L':',
                        int defaultValue = 0) const;
    double GetDblLeafValue(const wchar_t* childName, const wchar_t* leafName, int index = 1, wchar_t separator = L':',
                           double defaultValue = 0) const;
    /// Child and leaf are made where they are missing.
    void SetStrLeafValue(const wchar_t* childName, const wchar_t* leafName, int index, const wchar_t* value,
                         wchar_t separator = L':');
    void SetIntLeafValue(const wchar_t* childName, const wchar_t* leafName, int index, int value,
                         wchar_t separator = L':');
    void SetDblLeafValue(const wchar_t* childName, const wchar_t* leafName, int index, double value,
                         wchar_t separator = L':');
    /// The value of a leaf of this node as one field.
    int GetIntValue(const wchar_t* leafName, int defaultValue = 0) const;
    double GetDblValue(const wchar_t* leafName, double defaultValue = 0) const;
    /// All fields of a leaf of this node; false, with an empty array, when there is no such leaf.
    bool GetStrValueArray(const wchar_t* leafName, CStringArray& out, wchar_t separator = L':') const;
    bool GetIntValueArray(const wchar_t* leafName, CArray<int, int>& out, wchar_t separator = L':') const;
    bool GetDblValueArray(const wchar_t* leafName, CArray<double, double>& out, wchar_t separator = L':') const;

  private:
    friend struct orv::TreeAccess;

    explicit CNode(orv::AdoptedText name) noexcept : CTreeItem(name) {}

    static POSITION position(CTreeItem* item) { return reinterpret_cast<POSITION>(item); }
    const CLeaf* leafAt(const wchar_t* childName, const wchar_t* leafName) const;
    CLeaf* madeLeafAt(const wchar_t* childName, const wchar_t* leafName);

    orv::ItemChain children_;
    orv::ItemChain leaves_;
    mutable POSITION childCursor_ = nullptr;
    mutable POSITION leafCursor_ = nullptr;
    const char* packedEnd_ = nullptr;  // see TreeAccess::isPacked
    orv::TextSize packedSize_;         // of the leaves and children, but for the leaves' lines and TABs
    bool isSimpleXml_ = false;
};

namespace orv {

/// How the library itself reaches into items; nothing for hosts.
struct TreeAccess {
    static CNode* firstChild(const CNode& node) { return static_cast<CNode*>(node.children_.first); }
    static CLeaf* firstLeaf(const CNode& node) { return static_cast<CLeaf*>(node.leaves_.first); }
    template <class Item>
    static Item* next(const Item& item) {
        return static_cast<Item*>(item.next_);
    }
    template <class Item>
    static Item* previous(const Item& item) {
        return static_cast<Item*>(item.previous_);
    }
    static ItemChain& chainOf(CNode& node, const CNode&) { return node.children_; }
    static ItemChain& chainOf(CNode& node, const CLeaf&) { return node.leaves_; }
    static POSITION& cursorOf(const CNode& node, const CNode&) { return node.childCursor_; }
    static POSITION& cursorOf(const CNode& node, const CLeaf&) { return node.leafCursor_; }
    static void append(CNode& node, CNode& child) { link(node, node.children_, child, node.children_.last); }
    static void append(CNode& node, CLeaf& leaf) { link(node, node.leaves_, leaf, node.leaves_.last); }
    static void setName(CTreeItem& item, wchar_t* name);
    // In tree_memory.h:
    /// Whether all that a node holds, at every depth, is as the reader made it: plain items and texts that lie in
    /// memory in one run, from the first item to `packedEnd_`, with nothing else between them.
    static bool isPacked(const CNode& node) { return node.packedEnd_ != nullptr; }
    static void pack(CNode& node, const MemoryPages& pages);
    static void begin(CNode& node);
    static void addLeafSize(CNode& node, std::size_t nameAndValue);
    static void addChildSize(CNode& node, TextSize child);
    static TextSize sizeOfPacked(const CNode& node);
    static void unpack(CNode* node);
    static CLeaf* newLeaf(MemoryPages& pages, CNode& node, wchar_t* name, wchar_t* value);
    static CLeaf* newLeaf(MemoryPages& pages, CNode& node, wchar_t* name, WideView value, std::size_t readable);
    static CNode* newChild(MemoryPages& pages, CNode& node, wchar_t* name);
    static void appendNew(CNode& node, ItemChain& chain, CTreeItem& item);
    static void destroyChildren(CNode& node);
    static void destroyLeaves(CNode& node);
    static void destroyContents(CNode& node);
    class Destroyer;
    /// `item` stands in no node; `after` null: at the head.
    static void link(CNode& node, ItemChain& chain, CTreeItem& item, CTreeItem* after);
    template <class Item>
    static void unlink(Item& item);
    static void swapContents(CNode& node, CNode& other);
    static void copyContents(CNode& to, const CNode& from);
    static void setParent(const ItemChain& chain, CNode& parent);
};

inline ItemRange<CNode> childrenOf(CNode& node) { return ItemRange<CNode>(TreeAccess::firstChild(node)); }
inline ItemRange<const CNode> childrenOf(const CNode& node) {
    return ItemRange<const CNode>(TreeAccess::firstChild(node));
}
inline ItemRange<CLeaf> leavesOf(CNode& node) { return ItemRange<CLeaf>(TreeAccess::firstLeaf(node)); }
inline ItemRange<const CLeaf> leavesOf(const CNode& node) {
    return ItemRange<const CLeaf>(TreeAccess::firstLeaf(node));
}

template <class Item>
Item* ItemRange<Item>::Iterator::following(Item* item) {
    return item == nullptr ? nullptr : TreeAccess::next(*item);
}

}  // namespace orv
