#include "dialogs/wxTolvanDlg.h"
#include "vesta/CallEntry.h"

#include <wx/weakref.h>

#include <algorithm>
#include <utility>
#include <vector>

// A modal dialog belongs to whoever runs it, mostly on the stack: nothing else may delete it while
// it runs, and it ends only when those that were opened over it have ended.

namespace
{
std::vector<wxTolvanDlg*> s_Running; // the innermost last
} // namespace

// Lasts as long as the dialog runs, whichever way that ends.
struct wxTolvanDlg::ModalRun
{
    explicit ModalRun(wxTolvanDlg& dialog) : m_Dialog(dialog), m_Parent(dialog.GetParent())
    {
        s_Running.push_back(&dialog);
        dialog.m_IsFinished = true; // until it has come up
        if (m_Parent)
        {
            m_Parent->Bind(wxEVT_DESTROY, &wxTolvanDlg::LeaveParent, &dialog);
        }
    }
    ~ModalRun()
    {
        if (m_Parent)
        {
            m_Parent->Unbind(wxEVT_DESTROY, &wxTolvanDlg::LeaveParent, &m_Dialog);
        }
        s_Running.erase(std::remove(s_Running.begin(), s_Running.end(), &m_Dialog),
                        s_Running.end());
        EndInnermost();
    }
    ModalRun(const ModalRun&) = delete;
    ModalRun& operator=(const ModalRun&) = delete;

    // Ends the innermost dialog if it is to be closed; that brings the next one's turn.
    static void EndInnermost()
    {
        wxTolvanDlg* const dialog = s_Running.empty() ? nullptr : s_Running.back();
        if (dialog && dialog->m_Closed && dialog->IsModal())
        {
            dialog->End(0);
        }
    }

    wxTolvanDlg&        m_Dialog;
    wxWeakRef<wxWindow> m_Parent;
};

bool wxTolvanDlg::IsRunModally() const
{
    return m_Modal || IsModal() ||
           std::find(s_Running.begin(), s_Running.end(), this) != s_Running.end();
}

// Whichever way the run ends, and however many of them it takes.
void wxTolvanDlg::TellFinished()
{
    if (!std::exchange(m_IsFinished, true))
    {
        s_ModalFinished.Emit();
    }
}

int wxTolvanDlg::ShowModal()
{
    CALL_ENTRY("wxTolvanDlg::ShowModal");
    if (m_Closed)
    {
        return 0;
    }
    const ModalRun run(*this);
    const int      result = wxDialog::ShowModal();
    TellFinished(); // for those that end themselves with EndModal
    return result;
}

void wxTolvanDlg::CloseForGood()
{
    m_Closed = true;
    if (IsRunModally())
    {
        ModalRun::EndInnermost();
    }
    else if (GetHandle())
    {
        Destroy();
    }
}

// The parent is about to delete its children.
void wxTolvanDlg::LeaveParent(wxWindowDestroyEvent& event)
{
    event.Skip();
    wxWindow* const parent = GetParent();
    if (parent && event.GetEventObject() == parent)
    {
        parent->RemoveChild(this);
        SetParent(nullptr);
        // Those that were opened over it can only be in its way now.
        for (auto it = std::find(s_Running.begin(), s_Running.end(), this); it != s_Running.end();
             ++it)
        {
            (*it)->m_Closed = true;
        }
        ModalRun::EndInnermost();
    }
}
