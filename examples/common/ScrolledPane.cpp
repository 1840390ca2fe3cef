#include "common/ScrolledPane.h"

namespace
{
constexpr int kStep = 16; // pixels a step of the scrollbar
// Pixels; the toolkit complains of one that has no room for its scrollbar.
const wxSize kSmallest(80, 60);
} // namespace

ScrolledPane::ScrolledPane(wxWindow* parent)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, kSmallest,
                       wxVSCROLL | wxTAB_TRAVERSAL | wxBORDER_NONE)
{
    Manage(this);
    SetMinSize(kSmallest);
    SetScrollRate(0, kStep);
}
