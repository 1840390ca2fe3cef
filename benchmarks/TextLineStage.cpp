#include "benchmarks/TextLineStage.h"

void TextLineView::Repaint()
{
    const int before = m_Drawn;
    m_Stale = true;
    Refresh(false);
    Update();
    PumpUntil([&] { return m_Drawn > before; });
}

void TextLineView::DrawBitmap()
{
    wxTextLineCtrl::DrawBitmap();
    ++m_Drawn;
}

TextLineStage::TextLineStage()
{
    m_Frame = OpenFrame([this](wxFrame* frame) { return m_View = new TextLineView(frame); });
    m_View->Repaint();
}

void TextLineStage::Fill(int count) const
{
    for (int i = 0; i < count; ++i)
    {
        m_View->Append(WorkloadLine(i), false);
    }
    PumpEvents();
}

void TextLineStage::Show() const
{
    PumpEvents();
    m_View->Repaint();
    WaitForDisplay();
}

ToLine Prepare(wxTextLineCtrl& view, long long colouring)
{
    const bool isFollowed = colouring == kNotFound || colouring == kWithColours;
    view.SetEscapes(isFollowed ? wxTextLineCtrl::Escapes::Coloured : wxTextLineCtrl::Escapes::Raw);
    return colouring == kNotShown || colouring == kWithColours ? ColouredLine : WorkloadLine;
}
