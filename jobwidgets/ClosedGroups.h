#pragma once

#include "listviews/wxDBTreeModel.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <cstdint>
#include <map>
#include <set>

class wxDBTreeListCtrl;

namespace jobwidgets
{
/// Which groups of a tree the user has closed; any other is opened when it comes. A group is a
/// heading (see `wxDBTreeModel::_IsHeading`) that stands in the root; those come first there. It is
/// known by its key, also when it has gone and comes back, and from one run of the program to the
/// next. Main thread.
class TOLVAN_API ClosedGroups
{
public:
    static constexpr size_t k_Most = 300; ///< Of more, those are forgotten that were closed first.

    /// A text of `ToText`; what makes no sense in it does nothing.
    void   Read(const String& text);
    String ToText() const; ///< One line of some 10 KB at most.

    /// Takes from the tree which groups are closed now, as they are without a filter. To be called
    /// before the model has other groups, and before `ToText`.
    void Note(const wxDBTreeListCtrl& tree);
    /// Opens the groups that have come. To be called when the tree has been arranged.
    void OpenNew(wxDBTreeListCtrl& tree);
    /// Takes all groups for such as have come: the tree shows another model, or in another way.
    void StartAnew() { m_Known.clear(); }

    /// By the group's key.
    /// @{
    bool Has(const String& key) const;
    void Put(const String& key, bool isClosed);
    /// @}

private:
    struct Known
    {
        String key;
        bool   isOpen = false;
    };
    using Groups = std::map<wxDBTreeNode, Known>;
    using Nodes = std::set<wxDBTreeNode>;

    static Groups GroupsOf(const wxDBTreeListCtrl& tree);
    void          Open(wxDBTreeListCtrl& tree, Nodes due);

    std::map<String, uint64_t> m_Closed; ///< The larger the number, the later it was closed.
    uint64_t                   m_Last = 0;
    Groups                     m_Known; ///< Groups in the tree, as they were noted.
};
} // namespace jobwidgets
