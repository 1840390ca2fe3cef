#include "appearance/_MouseHold.h"

#include <wx/window.h>

void _EndMouseHold(wxWindow& window)
{
    for (wxWindow* holder = wxWindow::GetCapture(); holder && window.IsDescendant(holder);
         holder = wxWindow::GetCapture())
    {
        holder->ReleaseMouse();
    }
}
