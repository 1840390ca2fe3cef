#include "common/SavingQuestion.h"

#include "dialogs/wxQuestion.h"
#include "textviews/wxTextLineCtrl.h"

#include <wx/intl.h>
#include <wx/toplevel.h>

#include <algorithm>

namespace
{
const char* const kQuestion = "CloseWhileSaving";

bool IsSavingIn(const wxWindow& window)
{
    const auto* const text = dynamic_cast<const wxTextLineCtrl*>(&window);
    const auto&       children = window.GetChildren();
    return (text && text->IsSaving()) ||
           std::any_of(children.begin(), children.end(),
                       [](const wxWindow* child) { return IsSavingIn(*child); });
}
} // namespace

bool MayEndSaving(wxWindow* parent, const wxWindow* going)
{
    const bool isSaving =
        going ? IsSavingIn(*going)
              : std::any_of(wxTopLevelWindows.begin(), wxTopLevelWindows.end(),
                            [](const wxWindow* window) { return IsSavingIn(*window); });
    return !isSaving ||
           wxAsk(parent,
                 {kQuestion, wxGetTranslation("Close"),
                  wxGetTranslation("Lines are still being saved to a file. Close before they are, "
                                   "and leave the file as it was?"),
                  wxGetTranslation("Close"), wxGetTranslation("Stay"), true});
}
