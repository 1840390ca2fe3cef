#include "tests/support/Pictures.h"

#include <wx/dcmemory.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/utils.h>
#include <wx/window.h>

#include <cstdlib>
#include <cstring>

wxImage Drawn(const wxSize& size, const wxColour& background,
              const std::function<void(wxMemoryDC&)>& draw)
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

wxImage PictureOfScreen()
{
    // Another program's: the toolkit's own screen context leaves out other programs' windows.
    const wxString file = wxFileName::CreateTempFileName("tolvan-screen");
    wxImage        image;
    // Its windows must not be disabled meanwhile: that would be the picture.
    if (wxExecute("import -silent -window root bmp3:" + file, wxEXEC_SYNC | wxEXEC_NODISABLE) == 0)
    {
        image.LoadFile(file, wxBITMAP_TYPE_BMP);
    }
    wxRemoveFile(file);
    return image;
}

wxImage PictureOf(wxWindow* window)
{
    const wxRect area(window->ClientToScreen(wxPoint(0, 0)), window->GetClientSize());
    return PictureOfScreen().GetSubImage(area);
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

bool SamePixels(const wxImage& a, const wxImage& b)
{
    return a.GetSize() == b.GetSize() &&
           std::memcmp(a.GetData(), b.GetData(),
                       static_cast<size_t>(a.GetWidth() * a.GetHeight() * 3)) == 0;
}

int CountPixels(const wxImage& image, const std::function<bool(const wxColour&)>& isLike)
{
    int count = 0;
    for (int i = 0; i < image.GetWidth() * image.GetHeight(); ++i)
    {
        count += isLike(PixelAt(image, i % image.GetWidth(), i / image.GetWidth()));
    }
    return count;
}

wxString Kept(const wxImage& image, const wxString& name)
{
    const wxString folder = TOLVAN_PICTURE_FOLDER;
    wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    const wxString file = folder + "/" + name + ".png";
    return image.SaveFile(file, wxBITMAP_TYPE_PNG) ? "picture kept in " + file
                                                   : "picture could not be kept in " + file;
}
