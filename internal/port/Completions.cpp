#include "internal/port/Completions.h"

#include "internal/port/TopWindows.h"

#include <wx/window.h>

namespace internal
{
namespace
{
// The first list inside the widget, or the widget itself; null without one.
GtkWidget* ListInside(GtkWidget* widget)
{
    if (GTK_IS_TREE_VIEW(widget) || !GTK_IS_CONTAINER(widget))
    {
        return GTK_IS_TREE_VIEW(widget) ? widget : nullptr;
    }
    GtkWidget* found = nullptr;
    const List all(gtk_container_get_children(GTK_CONTAINER(widget)));
    for (const GList* one = all.get(); one && !found; one = one->next)
    {
        found = ListInside(GTK_WIDGET(one->data));
    }
    return found;
}

// What draws the rows; null where nothing does.
const void* FirstCell(GtkCellLayout* layout)
{
    const List cells(gtk_cell_layout_get_cells(layout));
    return cells ? cells->data : nullptr;
}

// The port keeps the list to itself, but it shares with the completion what draws its rows.
bool Shows(GtkWidget* list, GtkEntryCompletion* completion)
{
    GtkTreeViewColumn* const column = gtk_tree_view_get_column(GTK_TREE_VIEW(list), 0);
    const void* const        cell = column ? FirstCell(GTK_CELL_LAYOUT(column)) : nullptr;
    return cell && cell == FirstCell(GTK_CELL_LAYOUT(completion));
}

// Under which a list keeps the row that is marked.
const char* const kMarked = "tolvan-marked";

void FreeRow(void* row)
{
    gtk_tree_row_reference_free(static_cast<GtkTreeRowReference*>(row));
}

bool IsTimer(const GSource* source)
{
    return source && source->source_funcs == &g_timeout_funcs;
}

// The row that was marked; null where it has gone, or the list shows other rows by now.
GtkTreePath* MarkedBefore(GtkTreeView* list)
{
    auto* const row = static_cast<GtkTreeRowReference*>(g_object_get_data(G_OBJECT(list), kMarked));
    return row && gtk_tree_row_reference_get_model(row) == gtk_tree_view_get_model(list)
               ? gtk_tree_row_reference_get_path(row)
               : nullptr;
}

// Called when another row is marked, or none. The port opens the list with the letter that asks for
// it; a timer of the toolkit's, which would have opened it, still comes a moment later and takes
// the mark off the row that the user may have gone to by then.
void KeepMark(GtkTreeSelection* selection)
{
    GtkTreeView* const list = gtk_tree_selection_get_tree_view(selection);
    GtkTreeModel*      model = nullptr;
    GtkTreeIter        row;
    const bool         marked = gtk_tree_selection_get_selected(selection, &model, &row);
    const bool         open = gtk_widget_get_mapped(gtk_widget_get_toplevel(GTK_WIDGET(list)));
    if (!marked && open && IsTimer(g_main_current_source()))
    {
        if (GtkTreePath* const before = MarkedBefore(list))
        {
            gtk_tree_selection_select_path(selection, before);
            gtk_tree_path_free(before);
        }
        return;
    }
    GtkTreePath* const path = marked ? gtk_tree_model_get_path(model, &row) : nullptr;
    g_object_set_data_full(G_OBJECT(list), kMarked,
                           path ? gtk_tree_row_reference_new(model, path) : nullptr, FreeRow);
    gtk_tree_path_free(path);
}
} // namespace

bool CompletionsAreOpen()
{
    return IsPopUp(gtk_grab_get_current());
}

wxString MarkedCompletion()
{
    GtkWidget* const list = CompletionsAreOpen() ? ListInside(gtk_grab_get_current()) : nullptr;
    GtkTreeModel*    model = nullptr;
    GtkTreeIter      row;
    if (!list || !gtk_tree_selection_get_selected(gtk_tree_view_get_selection(GTK_TREE_VIEW(list)),
                                                  &model, &row))
    {
        return wxString();
    }
    constexpr int kText = 0;
    constexpr int kEnd = -1;
    char*         text = nullptr;
    gtk_tree_model_get(model, &row, kText, &text, kEnd);
    const wxString marked = wxString::FromUTF8(text ? text : "");
    g_free(text);
    return marked;
}

GtkWidget* CompletionsOf(GtkWidget* entry)
{
    GtkEntryCompletion* const completion =
        GTK_IS_ENTRY(entry) ? gtk_entry_get_completion(GTK_ENTRY(entry)) : nullptr;
    const auto showsIt = [completion](GtkWidget* window)
    {
        GtkWidget* const list = IsPopUp(window) ? ListInside(window) : nullptr;
        return list && Shows(list, completion);
    };
    GtkWidget* const window = completion ? FindTopWindow(showsIt) : nullptr;
    return window ? ListInside(window) : nullptr;
}

void KeepMarkedCompletion(const wxWindow& field)
{
    if (GtkWidget* const list = CompletionsOf(field.GetHandle()))
    {
        g_signal_connect(gtk_tree_view_get_selection(GTK_TREE_VIEW(list)), "changed",
                         G_CALLBACK(KeepMark), nullptr);
    }
}
} // namespace internal
