#pragma once

#include "shell/wxEndLater.h"
#include "shell/wxTolvanFrame.h"

class wxFlexGridSizer;
class wxtScrolledPane;

/// Every control of the library once, in the current colour scheme.
class GalleryFrame : public wxTolvanFrame
{
public:
    GalleryFrame();

private:
    void AddSections();
    void SetColumns(int columns);
    void FitToScreen();
    int  LeastWidth();
    void OnPaneSize(wxSizeEvent& event);
    void OnClose(wxCloseEvent& event);

    wxEndLater       m_End{*this};
    wxtScrolledPane* m_Pane = nullptr;
    wxFlexGridSizer* m_Grid = nullptr; // the sections'
    int              m_TwoColumns = 0; // pixels that the sections need side by side
};
