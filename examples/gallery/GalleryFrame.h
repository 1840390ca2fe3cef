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
    void FitToScreen();
    void OnClose(wxCloseEvent& event);

    wxEndLater       m_End{*this};
    wxtScrolledPane* m_Pane = nullptr;
    wxFlexGridSizer* m_Grid = nullptr; // the sections'
};
