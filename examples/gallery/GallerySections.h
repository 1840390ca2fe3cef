#pragma once

class wxSizer;
class wxWindow;

/// The gallery's sections, each a few controls of one family in their states: each adds what it
/// shows to the sizer.
using GallerySection = void (*)(wxWindow* parent, wxSizer* sizer);

void AddButtons(wxWindow* parent, wxSizer* sizer);
void AddBoxes(wxWindow* parent, wxSizer* sizer);
void AddFields(wxWindow* parent, wxSizer* sizer);
void AddChoices(wxWindow* parent, wxSizer* sizer);
void AddPanels(wxWindow* parent, wxSizer* sizer);
void AddCharts(wxWindow* parent, wxSizer* sizer);
void AddList(wxWindow* parent, wxSizer* sizer);
void AddTree(wxWindow* parent, wxSizer* sizer);
void AddArrangedList(wxWindow* parent, wxSizer* sizer);
void AddJobs(wxWindow* parent, wxSizer* sizer);
void AddJobDialog(wxWindow* parent, wxSizer* sizer);
void AddNotebook(wxWindow* parent, wxSizer* sizer);
void AddText(wxWindow* parent, wxSizer* sizer);
