#include "internal/input/MouseHold.h"

#include <wx/window.h>

namespace internal
{
void EndMouseHold(wxWindow& window)
{
    for (wxWindow* holder = wxWindow::GetCapture(); holder && window.IsDescendant(holder);
         holder = wxWindow::GetCapture())
    {
        holder->ReleaseMouse();
    }
}
} // namespace internal
