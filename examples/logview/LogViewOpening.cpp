#include "appearance/wxTolvanString.h"
#include "appearance/wxtNotebook.h"
#include "common/FollowingText.h"
#include "dialogs/wxQuestion.h"
#include "logview/ChosenFiles.h"
#include "logview/LogFiles.h"
#include "logview/LogPage.h"
#include "logview/LogViewFrame.h"
#include "logview/MergeFilesDlg.h"
#include "vesta/Log.h"

#include <wx/dirdlg.h>
#include <wx/filedlg.h>

#include <algorithm>

void LogViewFrame::OpenFiles(const std::vector<Path>& names)
{
    std::vector<Path> files;
    for (const Path& name : names)
    {
        if (!FileFollower::IsInput(name))
        {
            m_Recent.Add(AbsoluteName(name));
        }
        const std::vector<Path> some = LogFilesOf(name);
        if (some.empty())
        {
            LogWarning("There is no log file in " + name.Text());
        }
        files.insert(files.end(), some.begin(), some.end());
    }
    for (const Path& file : files)
    {
        if (!PageOf(file))
        {
            OpenPage({file}, &file == &files.back());
        }
    }
    NamePages();
    FillRecent();
    if (!files.empty())
    {
        m_Pages->BringUp(PageOf(files.back()));
    }
    ShowStatus();
}

// Null when it has none for itself.
LogPage* LogViewFrame::PageOf(const Path& file) const
{
    const String                name = AbsoluteName(file);
    const std::vector<LogPage*> pages = AllPages();
    const auto                  found =
        std::find_if(pages.begin(), pages.end(),
                     [&name](const LogPage* page)
                     { return !page->IsMerged() && AbsoluteName(page->File()) == name; });
    return found == pages.end() ? nullptr : *found;
}

void LogViewFrame::MergeFiles(const std::vector<Path>& names)
{
    std::vector<Path> files;
    for (const Path& name : names)
    {
        for (const Path& file : LogFilesOf(name))
        {
            const Path absolute = AbsoluteName(file);
            const bool isNew =
                std::none_of(files.begin(), files.end(),
                             [&](const Path& other) { return other.Text() == absolute.Text(); });
            if (isNew)
            {
                files.push_back(absolute);
            }
        }
    }
    if (files.size() < 2)
    {
        OpenFiles(names);
        return;
    }
    if (files.size() > MergedFollower::k_MostFiles)
    {
        files.resize(MergedFollower::k_MostFiles);
        wxTellProblem(wxString::Format(wxGetTranslation("No more than %u files can be merged. "
                                                        "These are the first ones of them."),
                                       static_cast<unsigned>(files.size())),
                      this);
    }
    OpenedFile merged{files.front()};
    merged.merged = files;
    OpenPage(merged, true);
    NamePages();
    FocusText();
    ShowStatus();
}

void LogViewFrame::OpenPage(const OpenedFile& file, bool select)
{
    OpenPage(file, select, m_Pages->GetPageCount());
}

void LogViewFrame::OpenPage(const OpenedFile& file, bool select, size_t place)
{
    auto* const page = new LogPage(m_Pages, file);
    place = std::min(place, m_Pages->GetPageCount());
    m_Pages->InsertPage(place, page, page->Title(), select);
    m_Pages->SetPageToolTip(place, page->FullName());
    String key = AbsoluteName(file.name);
    for (const Path& other : file.merged)
    {
        key += "|" + other.Text();
    }
    m_Pages->SetPageKey(page, key);
}

void LogViewFrame::OnOpen(wxCommandEvent&)
{
    // Beside what is open: other logs of that work are there.
    const LogPage* const page = PageInUse();
    const Path           folder = page && !FileFollower::IsInput(page->File())
                                      ? Path(AbsoluteName(page->File())).Branch()
                                      : Path();
    wxFileDialog dialog(WindowInUse(), wxGetTranslation("Open"), wxtToWx(folder.Text()), wxString(),
                        wxFileSelectorDefaultWildcardStr,
                        wxFD_OPEN | wxFD_MULTIPLE | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() != wxID_OK)
    {
        return;
    }
    wxArrayString files;
    dialog.GetPaths(files);
    OpenFiles(PathsOf(files));
}

void LogViewFrame::OnOpenFolder(wxCommandEvent&)
{
    wxDirDialog dialog(WindowInUse(), wxGetTranslation("Open Folder"), wxString(),
                       wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
    {
        OpenFiles({Path(String(dialog.GetPath().fn_str()))});
    }
}

// All that are open each for itself; in a page of several files those, to be added to.
void LogViewFrame::OnMerge(wxCommandEvent&)
{
    std::vector<Path> open;
    for (const LogPage* const page : AllPages())
    {
        if (!page->IsMerged() && !page->IsInput())
        {
            open.emplace_back(AbsoluteName(page->File()));
        }
    }
    const LogPage* const current = PageInUse();
    MergeFilesDlg dialog(WindowInUse(), current && current->IsMerged() ? current->Files() : open,
                         open);
    if (dialog.ShowModal() == wxID_OK)
    {
        MergeFiles(dialog.Chosen());
    }
}

// What came from the standard input does not come again.
void LogViewFrame::NoteClosed(const wxWindow* page)
{
    const auto* const closed = dynamic_cast<const LogPage*>(page);
    if (closed && !closed->IsInput())
    {
        const int index = m_Pages->GetPageIndex(const_cast<wxWindow*>(page));
        m_Closed.push_back({closed->Place(), index == wxNOT_FOUND ? m_Pages->GetPageCount()
                                                                  : static_cast<size_t>(index)});
    }
}

void LogViewFrame::OnReopenPage(wxCommandEvent&)
{
    if (!m_Closed.empty())
    {
        const ClosedPage closed = m_Closed.back();
        m_Closed.pop_back();
        OpenPage(closed.file, true, closed.place);
        NamePages();
        m_Pages->BringUp(m_Pages->GetCurrentPage());
        ShowStatus();
    }
}
