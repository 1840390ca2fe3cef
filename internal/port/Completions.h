#pragma once

#include <wx/string.h>

class wxWindow;
struct _GtkWidget;

namespace internal
{
/// The lists of completions that text fields open.

/// Whether a text field has its list of completions open: it gets the keys then.
bool CompletionsAreOpen();
/// The proposal that is marked in the open list of completions; empty where there is none.
wxString MarkedCompletion();
/// Leaves the mark on the proposal that the user has gone to until the user, or another list, takes
/// it off. Called once for the completions that a text field has got.
void KeepMarkedCompletion(const wxWindow& field);
/// The list in which the port's text field shows its completions, open or not. Null for one that
/// has none.
_GtkWidget* CompletionsOf(_GtkWidget* entry);
} // namespace internal
