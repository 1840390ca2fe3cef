#pragma once

#include "listviews/tree/OpenTree.h"

#include <memory>
#include <vector>

namespace listviews
{
/// Trees that nobody shows any more. To free a hundred thousand open nodes takes so long that it is
/// done a few at a time.
class TreeRemains
{
public:
    void Add(std::unique_ptr<OpenTree> tree); ///< Null: nothing.
    bool Step();                              ///< Frees a few; false when all are.
    bool IsEmpty() const { return m_Nodes.empty(); }

private:
    std::vector<std::unique_ptr<OpenNode>> m_Nodes; ///< With all that was opened in them.
};
} // namespace listviews
