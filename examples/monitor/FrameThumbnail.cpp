#include "monitor/FrameThumbnail.h"

#include "monitor/FarmJobs.h"
#include "monitor/FramePictures.h"
#include "monitor/PictureDecoder.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtStockControls.h"

#include <wx/dcbuffer.h>
#include <wx/intl.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace
{
constexpr int    kMost = 1024;    // pixels that a picture is kept in, in either direction
constexpr int    kTicks = 4;      // between two looks at the file
constexpr int    kGap = 4;        // pixels
constexpr int    kLookBack = 10;  // frames
constexpr size_t kMostName = 100; // characters
const wxSize     kSmallest(90, 60);

wxImage ImageOf(const Picture& picture)
{
    wxImage image(picture.width, picture.height, false);
    std::memcpy(image.GetData(), picture.pixels.data(), picture.pixels.size());
    return image;
}

String WhyNone(const FarmJob* job, int frame)
{
    if (!job)
    {
        return "No frame is selected";
    }
    if (job->frameCount == 0)
    {
        return "The job has no frames";
    }
    return frame < 1                 ? String("No frame is done yet")
           : frame > job->framesDone ? PictureProblem(*job, frame)
                                     : String("No picture is known of the frame");
}
} // namespace

// The picture as large as there is room for, but no larger than it is.
class FrameThumbnail::_Canvas : public wxWindow, public wxtColorManaged
{
public:
    explicit _Canvas(wxWindow* parent) : wxWindow(parent, wxID_ANY)
    {
        Manage(this);
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        Bind(wxEVT_PAINT, &_Canvas::OnPaint, this);
        Bind(wxEVT_SIZE,
             [this](wxSizeEvent& event)
             {
                 event.Skip();
                 Refresh();
             });
    }
    bool AcceptsFocus() const override { return false; }
    bool HasImage() const { return m_Image.IsOk(); }
    void ShowImage(const wxImage& image)
    {
        m_Image = image;
        m_Scaled = wxBitmap();
        Refresh();
    }

private:
    void OnPaint(wxPaintEvent&)
    {
        wxAutoBufferedPaintDC dc(this);
        dc.SetBackground(wxBrush(wxtGetColor(color_WindowBG)));
        dc.Clear();
        const wxSize room = GetClientSize();
        if (!m_Image.IsOk() || room.x < 1 || room.y < 1)
        {
            return;
        }
        const double scale = std::min({1.0, static_cast<double>(room.x) / m_Image.GetWidth(),
                                       static_cast<double>(room.y) / m_Image.GetHeight()});
        const wxSize size(std::max(1, static_cast<int>(m_Image.GetWidth() * scale)),
                          std::max(1, static_cast<int>(m_Image.GetHeight() * scale)));
        if (!m_Scaled.IsOk() || m_Scaled.GetSize() != size)
        {
            m_Scaled = wxBitmap(size == m_Image.GetSize()
                                    ? m_Image
                                    : m_Image.Scale(size.x, size.y, wxIMAGE_QUALITY_BILINEAR));
        }
        dc.DrawBitmap(m_Scaled, (room.x - size.x) / 2, (room.y - size.y) / 2);
    }

    wxImage  m_Image;
    wxBitmap m_Scaled;
};

FrameThumbnail::FrameThumbnail(wxWindow* parent, const FarmJobs& jobs)
    : wxtPanel(parent),
      m_Jobs(jobs),
      m_Canvas(new _Canvas(this)),
      m_Note(
          new wxtStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxSize(1, -1),
                            wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END | wxALIGN_CENTRE_HORIZONTAL)),
      m_Loader(&DecodePicture, [this] { CallAfter(&FrameThumbnail::OnLoaded); })
{
    PreparePictures();
    m_container.DisableSelfFocus();
    m_Note->m_ForegroundName = color_TextGrey;
    m_Note->KeepReadable();
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_Canvas, 1, wxEXPAND);
    sizer->Add(m_Note, 0, wxEXPAND | wxTOP, kGap);
    SetSizer(sizer);
    SetMinSize(kSmallest);
    m_Canvas->Bind(wxEVT_LEFT_DCLICK,
                   [this](wxMouseEvent&)
                   {
                       if (Shown().number > 0)
                       {
                           OpenPictures(m_Jobs, {Shown()}, wxGetTopLevelParent(this));
                       }
                   });
    ShowNote("No frame is selected");
}

void FrameThumbnail::ShowFrame(const FrameId& frame)
{
    m_Frame = frame;
    ShowWhatIsDue();
}

void FrameThumbnail::LoadAnew()
{
    m_Stamp = FileStamp();
    m_File = Path();
    ShowWhatIsDue();
}

// What `m_Frame` stands for just now.
FrameId FrameThumbnail::Shown() const
{
    const FarmJob* const job = m_Jobs.Find(m_Frame.job);
    if (m_Frame.number > 0 || !job)
    {
        return m_Frame;
    }
    // What is done is told before its file is named.
    int number = job->framesDone;
    while (number > std::max(0, job->framesDone - kLookBack) && PictureOf(*job, number).IsEmpty())
    {
        --number;
    }
    const bool isKnown = number > 0 && !PictureOf(*job, number).IsEmpty();
    return {m_Frame.job, isKnown ? number : job->framesDone};
}

void FrameThumbnail::OnTick()
{
    ShowWhatIsDue();
    if (++m_Ticks % kTicks == 0 && !m_File.IsEmpty())
    {
        m_Loader.Ask(m_File, m_Stamp, kMost); // it may have been written anew
    }
}

void FrameThumbnail::ShowWhatIsDue()
{
    const FrameId        frame = Shown();
    const FarmJob* const job = m_Jobs.Find(frame.job);
    const Path           file = job && frame.number > 0 ? PictureOf(*job, frame.number) : Path();
    if (!file.IsEmpty() && file.Text() == m_File.Text())
    {
        return;
    }
    m_File = file;
    m_Stamp = FileStamp();
    if (!file.IsEmpty())
    {
        m_Loader.Ask(file, m_Stamp, kMost); // until it is there, the former one stays
        return;
    }
    DropPicture();
    ShowNote(WhyNone(job, frame.number));
}

void FrameThumbnail::OnLoaded()
{
    const std::optional<PictureLoader::Result> result = m_Loader.Take();
    if (!result || result->file.Text() != m_File.Text())
    {
        return; // another one is due meanwhile
    }
    m_Stamp = result->stamp;
    if (!result->problem.empty())
    {
        DropPicture();
        ShowNote(result->problem);
        return;
    }
    m_Canvas->ShowImage(ImageOf(result->picture));
    ShowNote(OneLine(result->file.Leaf(), kMostName) +
             SFormat(", %d x %d", result->size.width, result->size.height) +
             (result->isWhole ? "" : ", being written"));
}

void FrameThumbnail::DropPicture()
{
    if (m_Canvas->HasImage())
    {
        m_Canvas->ShowImage(wxImage());
    }
}

void FrameThumbnail::ShowNote(const String& text)
{
    const wxString shown = wxGetTranslation(wxtToWx(text));
    if (shown != m_Note->GetLabelText())
    {
        m_Note->SetLabelText(shown);
        m_Note->SetToolTip(shown);
    }
}
