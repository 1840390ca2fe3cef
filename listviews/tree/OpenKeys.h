#pragma once

#include "listviews/tree/OpenTree.h"
#include "listviews/wxDBTreeModel.h"

namespace listviews
{
/// Which nodes are open, as the options file has it: keys with those of the nodes inside behind
/// them, "farm(job 1,job 2),archive". Nodes without a key are left out, with what is in them, and
/// so is what goes beyond 32 KiB. The model may throw.
String OpenNodesText(wxDBTreeModel& model, const OpenTree& tree);

/// Opens the nodes that the text names, unsorted. What it cannot read, and what does not exist,
/// opens nothing; no more than 200,000 children are asked for their keys.
void OpenByText(wxDBTreeModel& model, OpenTree& tree, const String& text);
} // namespace listviews
