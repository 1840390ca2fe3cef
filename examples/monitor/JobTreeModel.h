#pragma once

#include "monitor/JobRows.h"

#include "listviews/wxDBTreeModel.h"

/// The rows of the list of jobs as the list asks for them.
class JobTreeModel : public wxDBTreeModel
{
public:
    JobRows rows;
    Time    now; ///< For what changes by itself.

    long long    _ChildCount(wxDBTreeNode node) override { return rows.ChildCount(node); }
    wxDBTreeNode _Child(wxDBTreeNode node, long long index) override
    {
        return rows.Child(node, index);
    }
    String _Text(wxDBTreeNode node, int column) override { return rows.Text(node, column, now); }
    String _Key(wxDBTreeNode node) override
    {
        const JobRows::Group* const group = rows.FindGroup(node);
        return group ? jobwidgets::GroupKey(rows.Grouping(), group->name) : rows.KeyOf(node);
    }
    bool _IsHeading(wxDBTreeNode node) override { return rows.FindGroup(node) != nullptr; }
    std::optional<double> _SortNumber(wxDBTreeNode node, int column) override
    {
        return rows.SortNumber(node, column, now);
    }
};
