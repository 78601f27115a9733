// Parameters as data-tree nodes, for exchange with CAD applications: a root node holds one child node a parameter.
//
//     [Länge]                       a parameter's node, named by what stands before the first ":" of its name
//         oldStyleKeys:...              only of a name with ":": all behind that, as it is
//         value:2.5000000000            the value as one field
//         unit:1001                     the unit's number (units.h)
//         formattedValue:2.50           in the unit's standard format; of text and integers the value
//         unitLabel:m                   of units of measure only
//         readonly:0
//         group:-1
//     [ENDE_Länge]
//
// Null nodes give null; what is created belongs to the caller.
#pragma once

#include "orv/export.h"
#include "orv/tree_items.h"
#include "orv/units.h"

namespace orvAttrHelper {

ORV_API CNode* createNode(const CString& name, const wchar_t* value, bool readonly, int parameterGroup);
ORV_API CNode* createNode(const CString& name, int value, bool readonly, int parameterGroup);
/// The value is in the base unit of the unit's group. A negative precision means the unit's standard one.
ORV_API CNode* createNode(const CString& name, const double& value, enUnit unit, int unitPrecision, bool readonly,
                          int parameterGroup);

/// Removes the leaves "guid", "group" and "type" of every child; returns the node.
ORV_API CNode* shrinkNodeForAutoCAD(CNode* node);

/// Removes from every parameter what deCompressRootNode puts back: its "formattedValue" and "unitLabel", "readonly" 0
/// and "group" -1, in their places. A parameter that would not come back the same stays whole. Returns the root.
ORV_API CNode* compressRootNode(CNode* root);
/// Completes every child that has a "value" and a "unit" behind it. Returns the root.
ORV_API CNode* deCompressRootNode(CNode* root);

/// Brings `existing` up to date: for each child of `newNodes` the first child of its name takes over its leaves (those
/// of the same name in their places, others at the end; leaves that only the old one has stay) and, where it has any,
/// its children; what is not there yet is appended. Returns `existing`; `newNodes` is unchanged.
ORV_API CNode* mergeNewNodesWithExistingNodes(const CNode* newNodes, CNode* existing);

}  // namespace orvAttrHelper
