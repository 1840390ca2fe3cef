#include "tests/support/Pictures.h"

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/window.h>

#include <cstdlib>

wxImage Drawn(const wxSize& size, const wxColour& background,
              const std::function<void(wxDC&)>& draw)
{
    wxBitmap bitmap(size);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(wxBrush(background));
        dc.Clear();
        draw(dc);
    }
    return bitmap.ConvertToImage();
}

wxImage PictureOf(wxWindow* window)
{
    const wxSize  size = window->GetClientSize();
    const wxPoint origin = window->ClientToScreen(wxPoint(0, 0));
    wxBitmap      bitmap(size);
    {
        wxScreenDC screen;
        wxMemoryDC dc(bitmap);
        dc.Blit(wxPoint(0, 0), size, &screen, origin);
    }
    return bitmap.ConvertToImage();
}

wxColour PixelAt(const wxImage& image, int x, int y)
{
    return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
}

bool Near(const wxColour& a, const wxColour& b, int tolerance)
{
    return std::abs(a.Red() - b.Red()) <= tolerance &&
           std::abs(a.Green() - b.Green()) <= tolerance &&
           std::abs(a.Blue() - b.Blue()) <= tolerance;
}

wxString Kept(const wxImage& image, const wxString& name)
{
    const wxString folder = TOLVAN_PICTURE_FOLDER;
    wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    const wxString file = folder + "/" + name + ".png";
    return image.SaveFile(file, wxBITMAP_TYPE_PNG) ? "picture kept in " + file
                                                   : "picture could not be kept in " + file;
}
