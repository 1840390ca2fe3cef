#include "textviews/escapes/ShownLines.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

void wxTextLineCtrl::SetEscapes(Escapes escapes)
{
    CALL_ENTRY("wxTextLineCtrl::SetEscapes");
    if (escapes == m_Escapes)
    {
        return;
    }
    m_Escapes = escapes;
    m_Shown->Show(escapes != Escapes::Raw, escapes == Escapes::Coloured);
    MeasureAll();
    AdjustScrollbars();
    Redraw();
}
