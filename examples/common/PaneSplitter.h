#pragma once

#include "appearance/wxTolvanColors.h"
#include "vesta/String.h"

#include <wx/splitter.h>

/// Two panes one above the other with a sash between them that remembers its place.
class PaneSplitter : public wxSplitterWindow, public wxtColorManaged
{
public:
    /// `name`: the section of the options file where the sash's place is kept.
    PaneSplitter(wxWindow* parent, const String& name);
    ~PaneSplitter() override;

    /// The panes are children of the splitter. `firstHeight`: of the upper one, in pixels, until
    /// the user has chosen another.
    void Split(wxWindow* upper, wxWindow* lower, int firstHeight);
    void SaveSash() const;
    /// For the keyboard: moves the sash by that many pixels, as far as there is room.
    void MoveSash(int pixels);
    /// Moves the focus from the pane that has it to the other one.
    void SwitchPane();

    void DrawSash(wxDC& dc) override;

private:
    String m_Name;
};
