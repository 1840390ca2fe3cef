#pragma once

#include "vesta/String.h"

#include <wx/frame.h>
#include <wx/string.h>

#include <functional>
#include <vector>

namespace internal
{
/// What a folder has those above it do: each entry is set, before the program's main function, by
/// the one that can do it. Until then, and in a program without that folder, it does nothing. Main
/// thread, except where it says otherwise.
struct UpperFloors
{
    /// Whether a menu of a frame is open.
    bool (*isMenuOpen)() = [] { return false; };
    /// Every live dialog takes its colours from the table again.
    void (*refreshDialogs)() = [] {};
    /// Closes every live dialog; whether there was one.
    bool (*closeDialogs)() = [] { return false; };
    /// Every live dialog hears that the connection to the master has come or gone. Any thread.
    void (*tellDialogs)(bool connected) = [](bool) {};
    /// Whether the options let text fields complete words.
    bool (*mayComplete)() = [] { return true; };
    /// Adds words that text fields complete, of what the programs are about.
    void (*addWords)(std::vector<String>& words) = [](std::vector<String>&) {};
    /// Tells the user something that they may ask not to be told again, under `key`.
    void (*tellUser)(const wxString& message, const String& key) = [](const wxString&,
                                                                      const String&) {};
    /// Tells why something that the user asked for could not be done.
    void (*tellProblem)(const wxString& message, wxWindow* parent) = [](const wxString&,
                                                                        wxWindow*) {};
    /// Asks for a line of text, at first `text`, in a modal dialog that is known by the name; true:
    /// OK was pressed and `text` is the answer. `problem` says what is wrong with a text that is to
    /// be the answer, or nothing.
    bool (*askText)(wxWindow* parent, const wxString& message, const wxString& title,
                    wxString& text, const String& positionName,
                    const std::function<wxString(const wxString&)>& problem) =
        [](wxWindow*, const wxString&, const wxString&, wxString&, const String&,
           const std::function<wxString(const wxString&)>&) { return false; };
    /// A frame of the program, not shown yet, for a page that leaves `owner`.
    wxFrame* (*makePageFrame)(wxWindow& owner, const wxString& title) =
        [](wxWindow& owner, const wxString& title)
    { return new wxFrame(wxGetTopLevelParent(&owner), wxID_ANY, title); };
    /// Keeps the place of a window under that name, and brings a window to the place that is kept.
    void (*keepPlace)(wxWindow& window, const String& name) = [](wxWindow&, const String&) {};
    void (*bringToPlace)(wxWindow& window, const String& name) = [](wxWindow&, const String&) {};
};
inline UpperFloors g_UpperFloors;
} // namespace internal
