#pragma once

#include "dialogs/wxTolvanDlg.h"
#include "vesta/Path.h"

#include <vector>

class wxtCheckListBox;

/// Asks which files are to be merged: those that are open, and others that the user adds.
class MergeFilesDlg : public wxTolvanDlg
{
public:
    /// Those that are chosen at first, and others that are offered.
    MergeFilesDlg(wxWindow* parent, const std::vector<Path>& chosen,
                  const std::vector<Path>& offered);

    /// Two at least, once it was closed with OK.
    std::vector<Path> Chosen() const;

private:
    void AddFile(const Path& file, bool choose);
    void OnAdd();
    void ShowWhatIsPossible();

    wxtCheckListBox*  m_List = nullptr;
    std::vector<Path> m_Files; ///< Of the list.
};
