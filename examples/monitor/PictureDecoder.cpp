#include "monitor/PictureDecoder.h"

#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>

void PreparePictures()
{
    if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG))
    {
        wxImage::AddHandler(new wxPNGHandler);
    }
    if (!wxImage::FindHandler(wxBITMAP_TYPE_JPEG))
    {
        wxImage::AddHandler(new wxJPEGHandler);
    }
    if (!wxImage::FindHandler(wxBITMAP_TYPE_GIF))
    {
        wxImage::AddHandler(new wxGIFHandler);
    }
    if (!wxImage::FindHandler(wxBITMAP_TYPE_BMP))
    {
        wxImage::AddHandler(new wxBMPHandler);
    }
}

bool DecodePicture(const String& bytes, Picture& picture)
{
    const wxLogNull     quiet; // of this thread only
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    const wxImage       image(stream);
    if (!image.IsOk())
    {
        return false;
    }
    const size_t count =
        static_cast<size_t>(image.GetWidth()) * static_cast<size_t>(image.GetHeight());
    picture = {image.GetWidth(), image.GetHeight(), {}};
    picture.pixels.assign(image.GetData(), image.GetData() + count * 3);
    const unsigned char* const alpha = image.GetAlpha();
    for (size_t i = 0; alpha && i < count * 3; ++i)
    {
        picture.pixels[i] = static_cast<uint8_t>(picture.pixels[i] * alpha[i / 3] / 255);
    }
    return true;
}
