// The data tree with all that belongs to it.
#pragma once

#include "orv/parameter_nodes.h"
#include "orv/pugixml_utils.h"
#include "orv/report_tree.h"
#include "orv/tree_items.h"
#include "orv/tree_tools.h"
#include "orv/tree_xml.h"
