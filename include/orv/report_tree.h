// The flattened form of a data tree that reports are made from: levels of named values.
//
// - A tree owns its children. Copying and destroying take no stack in proportion to the depth.
// - Names are compared ignoring case (Unicode's simple folding); a value set again stays in its place.
// - Null texts count as "".
#pragma once

#include "orv/export.h"
#include "orv/framework/arrays.h"
#include "orv/framework/lists.h"
#include "orv/framework/string.h"

class CNode;

struct VARIABLE {
    CString name;
    CString value;
    CString third;  // given by the three-argument AddValue alone
};

class ORV_API CDataTree {
  public:
    CDataTree() = default;
    CDataTree(const CDataTree& other) : CDataTree() { *this = other; }
    ~CDataTree() { cleanUp(); }
    /// Replaces values and children by copies; the copy uses the same shared array. `other` may be in this tree.
    CDataTree& operator=(const CDataTree& other);

    /// Destroys the children and empties the own array; a shared one stays as it is.
    void cleanUp();
    /// The shared array when there is one, else the own one.
    CArray<VARIABLE, const VARIABLE&>& GetDataArray() { return sharedData != nullptr ? *sharedData : data; }
    const CArray<VARIABLE, const VARIABLE&>& GetDataArray() const { return sharedData != nullptr ? *sharedData : data; }
    /// Appends an empty child.
    CDataTree* AddChild();

    /// Sets a value in the array that GetDataArray gives: 1 when the name is there (only its value is replaced, not
    /// the third text), 0 when it was appended.
    int AddValue(const wchar_t* name, const wchar_t* value, const wchar_t* third);
    int AddValue(const wchar_t* name, const wchar_t* value);
    /// A null format, and one that is not exactly one directive for such a number with text around it, counts as "%d",
    /// "%f".
    int AddValue(const wchar_t* name, const int& value);
    int AddValue(const wchar_t* name, const int& value, const wchar_t* format);
    int AddValue(const wchar_t* name, const double& value, const wchar_t* format);

    /// Appends a child for each child named "Child" of `node`, with its leaves as values (each as one field), and below
    /// it one for each of its child nodes, whatever their names. Always true; null has no children.
    bool LoadFromNode(const CNode* node);

    CArray<VARIABLE, const VARIABLE&> data;
    CList<CDataTree*, CDataTree*> children{4};
    CArray<VARIABLE, const VARIABLE&>* sharedData = nullptr;  // not owned
    int furtherWord = 0;                                      // a host's; only copied here

  private:
    CDataTree* nextDoomed_ = nullptr;  // the ones that cleanUp has still to destroy
};
