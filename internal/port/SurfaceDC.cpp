#include "internal/port/SurfaceDC.h"

#include <wx/dcgraph.h>
#include <wx/graphics.h>

namespace internal
{
namespace
{
class _TellingImpl : public wxGCDCImpl
{
public:
    _TellingImpl(wxDC* owner, wxGraphicsContext* context, const wxSize& size, double scale)
        : wxGCDCImpl(owner, context), m_Size(size)
    {
        m_contentScaleFactor = scale;
    }

    std::function<void()> before;

private:
    void Tell() const
    {
        if (before)
        {
            before();
        }
    }

    // The toolkit's own knows no size of what it has not made itself.
    void DoGetSize(int* width, int* height) const override
    {
        if (width)
        {
            *width = m_Size.x;
        }
        if (height)
        {
            *height = m_Size.y;
        }
    }

    void Clear() override
    {
        Tell();
        wxGCDCImpl::Clear();
    }
    // Whoever has it draws past this context.
    wxGraphicsContext* GetGraphicsContext() const override
    {
        Tell();
        return wxGCDCImpl::GetGraphicsContext();
    }
    void* GetHandle() const override
    {
        Tell();
        return wxGCDCImpl::GetHandle();
    }
    bool DoGetPixel(wxCoord x, wxCoord y, wxColour* colour) const override
    {
        Tell();
        return wxGCDCImpl::DoGetPixel(x, y, colour);
    }
    bool DoFloodFill(wxCoord x, wxCoord y, const wxColour& colour, wxFloodFillStyle style) override
    {
        Tell();
        return wxGCDCImpl::DoFloodFill(x, y, colour, style);
    }
    void DoGradientFillLinear(const wxRect& rect, const wxColour& first, const wxColour& last,
                              wxDirection direction) override
    {
        Tell();
        wxGCDCImpl::DoGradientFillLinear(rect, first, last, direction);
    }
    void DoGradientFillConcentric(const wxRect& rect, const wxColour& first, const wxColour& last,
                                  const wxPoint& centre) override
    {
        Tell();
        wxGCDCImpl::DoGradientFillConcentric(rect, first, last, centre);
    }
    void DoDrawPoint(wxCoord x, wxCoord y) override
    {
        Tell();
        wxGCDCImpl::DoDrawPoint(x, y);
    }
    void DoDrawSpline(const wxPointList* points) override
    {
        Tell();
        wxGCDCImpl::DoDrawSpline(points);
    }
    void DoDrawLine(wxCoord x1, wxCoord y1, wxCoord x2, wxCoord y2) override
    {
        Tell();
        wxGCDCImpl::DoDrawLine(x1, y1, x2, y2);
    }
    void DoDrawArc(wxCoord x1, wxCoord y1, wxCoord x2, wxCoord y2, wxCoord xc, wxCoord yc) override
    {
        Tell();
        wxGCDCImpl::DoDrawArc(x1, y1, x2, y2, xc, yc);
    }
    void DoDrawCheckMark(wxCoord x, wxCoord y, wxCoord width, wxCoord height) override
    {
        Tell();
        wxGCDCImpl::DoDrawCheckMark(x, y, width, height);
    }
    void DoDrawEllipticArc(wxCoord x, wxCoord y, wxCoord w, wxCoord h, double start,
                           double end) override
    {
        Tell();
        wxGCDCImpl::DoDrawEllipticArc(x, y, w, h, start, end);
    }
    void DoDrawRectangle(wxCoord x, wxCoord y, wxCoord width, wxCoord height) override
    {
        Tell();
        wxGCDCImpl::DoDrawRectangle(x, y, width, height);
    }
    void DoDrawRoundedRectangle(wxCoord x, wxCoord y, wxCoord width, wxCoord height,
                                double radius) override
    {
        Tell();
        wxGCDCImpl::DoDrawRoundedRectangle(x, y, width, height, radius);
    }
    void DoDrawEllipse(wxCoord x, wxCoord y, wxCoord width, wxCoord height) override
    {
        Tell();
        wxGCDCImpl::DoDrawEllipse(x, y, width, height);
    }
    void DoCrossHair(wxCoord x, wxCoord y) override
    {
        Tell();
        wxGCDCImpl::DoCrossHair(x, y);
    }
    void DoDrawIcon(const wxIcon& icon, wxCoord x, wxCoord y) override
    {
        Tell();
        wxGCDCImpl::DoDrawIcon(icon, x, y);
    }
    void DoDrawBitmap(const wxBitmap& bitmap, wxCoord x, wxCoord y, bool useMask) override
    {
        Tell();
        wxGCDCImpl::DoDrawBitmap(bitmap, x, y, useMask);
    }
    void DoDrawText(const wxString& text, wxCoord x, wxCoord y) override
    {
        Tell();
        wxGCDCImpl::DoDrawText(text, x, y);
    }
    void DoDrawRotatedText(const wxString& text, wxCoord x, wxCoord y, double angle) override
    {
        Tell();
        wxGCDCImpl::DoDrawRotatedText(text, x, y, angle);
    }
    bool DoBlit(wxCoord x, wxCoord y, wxCoord width, wxCoord height, wxDC* source, wxCoord sourceX,
                wxCoord sourceY, wxRasterOperationMode mode, bool useMask, wxCoord maskX,
                wxCoord maskY) override
    {
        Tell();
        return wxGCDCImpl::DoBlit(x, y, width, height, source, sourceX, sourceY, mode, useMask,
                                  maskX, maskY);
    }
    bool DoStretchBlit(wxCoord x, wxCoord y, wxCoord width, wxCoord height, wxDC* source,
                       wxCoord sourceX, wxCoord sourceY, wxCoord sourceWidth, wxCoord sourceHeight,
                       wxRasterOperationMode mode, bool useMask, wxCoord maskX,
                       wxCoord maskY) override
    {
        Tell();
        return wxGCDCImpl::DoStretchBlit(x, y, width, height, source, sourceX, sourceY, sourceWidth,
                                         sourceHeight, mode, useMask, maskX, maskY);
    }
    void DoDrawLines(int count, const wxPoint points[], wxCoord x, wxCoord y) override
    {
        Tell();
        wxGCDCImpl::DoDrawLines(count, points, x, y);
    }
    void DoDrawPolygon(int count, const wxPoint points[], wxCoord x, wxCoord y,
                       wxPolygonFillMode mode) override
    {
        Tell();
        wxGCDCImpl::DoDrawPolygon(count, points, x, y, mode);
    }
    void DoDrawPolyPolygon(int count, const int counts[], const wxPoint points[], wxCoord x,
                           wxCoord y, wxPolygonFillMode mode) override
    {
        Tell();
        wxGCDCImpl::DoDrawPolyPolygon(count, counts, points, x, y, mode);
    }

    wxSize m_Size;
};
} // namespace

SurfaceDC::SurfaceDC(std::unique_ptr<wxGraphicsContext> context, const wxSize& size, double scale)
    : wxDC(new _TellingImpl(this, context.release(), size, scale))
{
}

void SurfaceDC::SetBefore(std::function<void()> before)
{
    static_cast<_TellingImpl*>(m_pimpl)->before = std::move(before);
}
} // namespace internal
