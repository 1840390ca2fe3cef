#include "listviews/wxDBTreeModel.h"

wxDBTreeModel::~wxDBTreeModel() = default;

bool wxDBTreeModel::_MayHaveChildren(wxDBTreeNode node)
{
    return _ChildCount(node) > 0;
}

String wxDBTreeModel::_Key(wxDBTreeNode)
{
    return String();
}

std::optional<double> wxDBTreeModel::_SortNumber(wxDBTreeNode, int)
{
    return std::nullopt;
}

bool wxDBTreeModel::_IsHeading(wxDBTreeNode)
{
    return false;
}

bool wxDBTreeModel::_IsCounted(wxDBTreeNode)
{
    return true;
}

bool wxDBTreeModel::_IsFirst(wxDBTreeNode)
{
    return false;
}

wxColour wxDBTreeModel::_RowColor(wxDBTreeNode)
{
    return wxColour();
}

wxColour wxDBTreeModel::_RowBGColor(wxDBTreeNode)
{
    return wxColour();
}

bool wxDBTreeModel::_DrawCell(wxDC&, wxDBTreeNode, int, const wxRect&, bool)
{
    return false;
}
