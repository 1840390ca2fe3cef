#pragma once

#include "shell/wxEndLater.h"
#include "shell/wxTolvanFrame.h"

/// Every control of the library once, in the current colour scheme.
class GalleryFrame : public wxTolvanFrame
{
public:
    GalleryFrame();

private:
    wxSizer* BuildSections(wxWindow* parent);
    void     OnClose(wxCloseEvent& event);

    wxEndLater m_End{*this};
};
