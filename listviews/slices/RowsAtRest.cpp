#include "listviews/slices/RowsAtRest.h"

#include "internal/windows/UpperFloors.h"
#include "listviews/wxDBListCtrl.h"

#include <wx/dialog.h>
#include <wx/utils.h>

#include <algorithm>

namespace listviews
{
namespace
{
// A dialog that the window runs; the list may itself lie in one.
bool HasModalDialog(wxWindow* top)
{
    return std::any_of(wxTopLevelWindows.begin(), wxTopLevelWindows.end(),
                       [top](wxWindow* window)
                       {
                           const auto* const dialog = dynamic_cast<const wxDialog*>(window);
                           return dialog && dialog != top && dialog->IsModal() &&
                                  dialog->GetParent() &&
                                  wxGetTopLevelParent(dialog->GetParent()) == top;
                       });
}

bool IsButtonHeld()
{
    const wxMouseState mouse = wxGetMouseState();
    return mouse.LeftIsDown() || mouse.MiddleIsDown() || mouse.RightIsDown();
}
} // namespace

bool MayReplaceRows(wxDBListCtrl& list)
{
    return !IsButtonHeld() && !list.IsCopying() && !list.IsSelecting() &&
           !internal::g_UpperFloors.isMenuOpen() && !HasModalDialog(wxGetTopLevelParent(&list));
}
} // namespace listviews
