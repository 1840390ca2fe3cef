#pragma once

#include "monitor/FrameMenu.h"
#include "monitor/PictureLoader.h"

#include "appearance/wxTolvanColors.h"
#include "shell/wxTimed.h"

#include <wx/bitmap.h>
#include <wx/image.h>

class FarmJobs;
class wxtStaticText;

/// The picture of a frame, as its file has it now: it is loaded in the background and follows the
/// file. A double click opens it.
class FrameThumbnail : public wxtPanel, private wxTimed
{
public:
    /// `jobs` must outlive the window.
    FrameThumbnail(wxWindow* parent, const FarmJobs& jobs);

    /// Shows that frame; with the number 0 the one that the job has done last.
    void ShowFrame(const FrameId& frame);
    void LoadAnew();

private:
    class _Canvas;

    FrameId Shown() const;
    void    OnTick() override;
    void    ShowWhatIsDue();
    void    OnLoaded();
    void    ShowNote(const String& text);
    void    DropPicture();

    const FarmJobs& m_Jobs;
    FrameId         m_Frame;
    Path            m_File; ///< Of the picture that is shown or asked for.
    FileStamp       m_Stamp;
    int             m_Ticks = 0;
    _Canvas*        m_Canvas;
    wxtStaticText*  m_Note;
    PictureLoader   m_Loader; ///< Last: it is the first to go.
};
