#pragma once

#include "appearance/wxtColorManaged.h"

namespace dialogs
{
/// A bar in the scheme's colours, with the share in percent written on it. Of what nobody knows the
/// length of, a piece moves on with each call.
class ProgressBar : public wxtPanel
{
public:
    explicit ProgressBar(wxWindow* parent);

    void Set(int done, int total);

private:
    void Paint(wxPaintEvent& event);

    double m_Share = 0; ///< 0 to 1; less: not known.
    int    m_Step = 0;
};
} // namespace dialogs
