#include "textviews/escapes/ShownLines.h"
#include "textviews/search/VisibleHits.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/CallEntry.h"

void wxTextLineCtrl::SetEscapes(Escapes escapes)
{
    CALL_ENTRY("wxTextLineCtrl::SetEscapes");
    if (escapes == m_Escapes)
    {
        return;
    }
    const bool isShown = escapes != Escapes::Raw;
    if (!isShown)
    {
        TakeHitAsStored();
    }
    m_Escapes = escapes;
    m_Shown->Show(isShown, escapes == Escapes::Coloured);
    m_Hits->Forget();
    if (wxTextLineSearchPanel* const panel = GetSearchPanel())
    {
        panel->LookAtShown(isShown);
    }
    m_Wrap->Forget();
    ReadRulesAnew();
    MeasureAll();
    AdjustScrollbars();
    TellLook();
    Redraw();
}
