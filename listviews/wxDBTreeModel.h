#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include <cstdint>
#include <optional>

class wxDC;

/// A node of a tree: a number that the host gives it and gets back as it was. 0 is the root, which
/// is not shown.
using wxDBTreeNode = int64_t;

/// By which column the children of each node are sorted, named by its type, and which way round.
struct wxDBTreeSort
{
    int  column = 0;
    bool descending = false;
};

/// Where the nodes of a `wxDBTreeListCtrl` come from. The list keeps nothing of a closed node: it
/// asks for the number of children when a node opens, and for a node when its row is seen.
///
/// A model that has changed says so (`wxDBTreeListCtrl::ModelChanged`). Until its new rows are
/// there the list may ask for nodes and children that have gone meanwhile: the answers are the root
/// for a child and an empty text. What a function throws while nodes are opened or arranged ends
/// that and is logged. A column is named by its type, whatever its place. Main thread.
class TOLVAN_API wxDBTreeModel
{
public:
    static constexpr wxDBTreeNode k_Root = 0;

    virtual ~wxDBTreeModel();

    /// @name What a host supplies
    /// @{
    /// Asked when the node opens; less than 0 is none, and of more than 2,147,483,647 children
    /// those behind are never shown.
    virtual long long    _ChildCount(wxDBTreeNode node) = 0;
    virtual wxDBTreeNode _Child(wxDBTreeNode node, long long index) = 0; ///< Index from 0.
    virtual String       _Text(wxDBTreeNode node, int column) = 0;
    /// @}

    /// @name What a host may supply
    /// @{
    /// Whether the node gets something to open it by; asked whenever its row is drawn. By default
    /// its children are counted.
    virtual bool _MayHaveChildren(wxDBTreeNode node);
    /// What the node is known by when the model has changed, and from one run of the program to the
    /// next; no two children of a node have the same. An empty one, the default: by its number, in
    /// this run.
    virtual String _Key(wxDBTreeNode node);
    /// What the column is sorted by where that is a number. By default none: its text, in which
    /// numbers count by their value.
    virtual std::optional<double> _SortNumber(wxDBTreeNode node, int column);

    /// A heading is there for what is in it: words of a filter that stand in it count for that, and
    /// it is neither shown for itself nor counted. By default there is none.
    virtual bool _IsHeading(wxDBTreeNode node);
    /// Whether it is one of those that a filter says it shows. By default all are but headings; not
    /// what stands for something that is in the tree a second time.
    virtual bool _IsCounted(wxDBTreeNode node);
    /// Stands before the other children, whatever they are sorted by; by default none does.
    virtual bool _IsFirst(wxDBTreeNode node);

    virtual wxColour _RowColor(wxDBTreeNode node);   ///< Of its text; invalid: the scheme's.
    virtual wxColour _RowBGColor(wxDBTreeNode node); ///< Invalid: the list's stripes.
    /// Draws a cell in the context's font and text colour and returns true; by default false: the
    /// list draws the text. `rect`: pixels of the body, behind the expander in the tree's column.
    virtual bool _DrawCell(wxDC& dc, wxDBTreeNode node, int column, const wxRect& rect,
                           bool selected);
    /// @}
};
