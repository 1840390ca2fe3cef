#pragma once

#include "listviews/arranging/KeySort.h"
#include "listviews/tree/OpenTree.h"
#include "listviews/wxDBTreeModel.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace listviews
{
using TreeSort = std::vector<wxDBTreeSort>; ///< The first one that tells two rows apart decides.

/// Sorts the children of one node, in steps of a millisecond or so. What the model throws ends it.
class LevelSort
{
public:
    /// More children than that stay as they are.
    static constexpr int k_MostChildren = 5000000;

    LevelSort(wxDBTreeModel& model, const TreeSort& by, OpenNode& node);

    bool Step();  ///< False when it is done.
    void Apply(); ///< Once it is done.

private:
    void AddKey(int place);

    wxDBTreeModel&                           m_Model;
    const TreeSort&                          m_By;
    OpenNode&                                m_Node;
    int                                      m_Next = 0; ///< The place whose key is asked for next.
    std::string                              m_Key;      ///< Of the child that is asked.
    std::vector<std::pair<std::string, int>> m_Few;      ///< Keys and indexes, when there are few.
    std::unique_ptr<KeySort>                 m_Many;     ///< Else.
};
} // namespace listviews
