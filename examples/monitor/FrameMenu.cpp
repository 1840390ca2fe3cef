#include "monitor/FrameMenu.h"

#include "monitor/FarmJobs.h"
#include "monitor/FramePictures.h"
#include "monitor/JobCommands.h"

#include "appearance/wxTolvanString.h"
#include "listviews/wxDBListCtrl.h"

#include <wx/clipbrd.h>
#include <wx/intl.h>
#include <wx/menu.h>
#include <wx/weakref.h>

#include <algorithm>
#include <iterator>

namespace
{
enum
{
    id_OpenPictures = 22200,
    id_OpenFolder,
    id_CopyPaths,
    id_CopyRows
};

wxString OpenLabel(size_t pictures)
{
    if (pictures <= 1)
    {
        return wxGetTranslation("&Open Picture");
    }
    return pictures <= k_MostWindowsAtOnce
               ? wxString::Format(wxGetTranslation("&Open %zu Pictures"), pictures)
               : wxString::Format(wxGetTranslation("&Open %zu of %zu Pictures"),
                                  k_MostWindowsAtOnce, pictures);
}

Path PictureOf(const FarmJobs& jobs, const FrameId& frame)
{
    const FarmJob* const job = jobs.Find(frame.job);
    return job ? PictureOf(*job, frame.number) : Path();
}

// Those whose pictures are known.
std::vector<FrameId> WithPictures(const FarmJobs& jobs, const std::vector<FrameId>& frames)
{
    std::vector<FrameId> known;
    std::copy_if(frames.begin(), frames.end(), std::back_inserter(known),
                 [&jobs](const FrameId& frame) { return !PictureOf(jobs, frame).IsEmpty(); });
    return known;
}

// Empty when it was opened.
String OpenPicture(const FarmJob& job, int number)
{
    String problem = PictureProblem(job, number);
    if (problem.empty() && !OpenOnDesktop(PictureOf(job, number)))
    {
        problem = "The desktop has no program to show a picture:\n" + PictureOf(job, number).Text();
    }
    return problem;
}

void OpenFolders(const FarmJobs& jobs, const std::vector<FrameId>& frames, wxWindow* parent)
{
    JobPointers found;
    for (const FrameId& frame : frames)
    {
        const FarmJob* const job = jobs.Find(frame.job);
        if (job && (found.empty() || found.back() != job->job) &&
            found.size() < k_MostWindowsAtOnce)
        {
            found.push_back(job->job);
        }
    }
    OpenOutputFolders(found, parent);
}

void CopyPaths(const FarmJobs& jobs, const std::vector<FrameId>& frames)
{
    if (!wxTheClipboard->Open())
    {
        return;
    }
    String text;
    for (const FrameId& frame : WithPictures(jobs, frames))
    {
        text += (text.empty() ? "" : "\n") + PictureOf(jobs, frame).Text();
    }
    wxTheClipboard->SetData(new wxTextDataObject(wxtToWx(text)));
    wxTheClipboard->Close();
}
} // namespace

void ShowFrameMenu(wxDBListCtrl& list, const FarmJobs& jobs, const std::vector<FrameId>& frames,
                   const wxPoint& where)
{
    const wxWeakRef<wxDBListCtrl> self(&list);
    const size_t                  pictures = WithPictures(jobs, frames).size();
    wxMenu                        menu;
    menu.Append(id_OpenPictures, OpenLabel(pictures))->Enable(pictures > 0);
    menu.Append(id_CopyPaths, pictures > 1 ? wxGetTranslation("Copy File &Names")
                                           : wxGetTranslation("Copy File &Name"))
        ->Enable(pictures > 0);
    menu.Append(id_CopyRows, wxGetTranslation("&Copy Rows\tCtrl+C"));
    menu.AppendSeparator();
    menu.Append(id_OpenFolder, wxGetTranslation("Open Output &Folder"));
    const int chosen = list.GetPopupMenuSelectionFromUser(menu, list.ScreenToClient(where));
    if (!self)
    {
        return;
    }
    switch (chosen)
    {
    case id_OpenPictures:
        OpenPictures(jobs, frames, wxGetTopLevelParent(&list));
        break;
    case id_CopyPaths:
        CopyPaths(jobs, frames);
        break;
    case id_CopyRows:
        list.CopySelection();
        break;
    case id_OpenFolder:
        OpenFolders(jobs, frames, wxGetTopLevelParent(&list));
        break;
    default:
        break;
    }
}

void OpenPictures(const FarmJobs& jobs, const std::vector<FrameId>& frames, wxWindow* parent)
{
    std::vector<FrameId> known = WithPictures(jobs, frames);
    if (known.empty() && !frames.empty())
    {
        known.push_back(frames.front()); // to say what is wrong with it
    }
    known.resize(std::min(known.size(), k_MostWindowsAtOnce));
    for (const FrameId& frame : known)
    {
        const FarmJob* const job = jobs.Find(frame.job);
        const String         problem = job ? OpenPicture(*job, frame.number) : String();
        if (!problem.empty())
        {
            TellFailure(problem, parent);
            return;
        }
    }
}
