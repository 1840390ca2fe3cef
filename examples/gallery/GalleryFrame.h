#pragma once

#include "shell/wxTolvanFrame.h"

/// Every control of the library once, in the current colour scheme.
class GalleryFrame : public wxTolvanFrame
{
public:
    GalleryFrame();

private:
    wxSizer* BuildSections(wxWindow* parent);
};
