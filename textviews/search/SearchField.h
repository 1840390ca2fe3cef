#pragma once

#include "appearance/wxtTextCtrl.h"

namespace textviews
{
/// The field of a search bar. It can show that there is nothing to be found by what is in it. Main
/// thread.
class SearchField : public wxtTextCtrl
{
public:
    SearchField(wxWindow* parent, int width);

    void ShowNoHit(bool noHit);
    bool ShowsNoHit() const { return m_NoHit; }

    bool SetForegroundColour(const wxColour& colour) override;
    bool SetBackgroundColour(const wxColour& colour) override;

private:
    wxColour GroundFor(const wxColour& ground) const;

    bool m_NoHit = false;
};
} // namespace textviews
