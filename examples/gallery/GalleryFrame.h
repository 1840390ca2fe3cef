#pragma once

#include "shell/wxEndLater.h"
#include "shell/wxTolvanFrame.h"

class wxFlexGridSizer;

/// Every control of the library once, in the current colour scheme.
class GalleryFrame : public wxTolvanFrame
{
public:
    GalleryFrame();

private:
    void AddSections(wxWindow& parent);
    void FitToScreen(wxSizer& sections);
    void OnClose(wxCloseEvent& event);

    wxEndLater       m_End{*this};
    wxFlexGridSizer* m_Grid = nullptr; // the sizers' of its pane
};
