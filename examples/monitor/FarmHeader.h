#pragma once

#include "monitor/FarmJobs.h"

#include "appearance/wxTolvanColors.h"

class wxtStaticText;

/// The line at the top of the main window: the connection to the master, and the farm as a whole.
class FarmHeader : public wxtPanel
{
public:
    explicit FarmHeader(wxWindow* parent);

    void ShowConnection(bool connected);
    void ShowSummary(const FarmJobs::Summary& summary);

private:
    void SetText(wxtStaticText& label, const wxString& text);

    wxtStaticText* m_Connection;
    wxtStaticText* m_Summary;
};
