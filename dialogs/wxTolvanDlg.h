#pragma once

#include "appearance/wxTolvanColors.h"
#include "vesta/Export.h"
#include "vesta/Signal.h"
#include "vesta/String.h"

#include <wx/dialog.h>

#include <cstdint>
#include <map>
#include <set>

class wxBoxSizer;
class wxtPanel;
class wxtStaticText;

/// Base of the programs' dialogs: it knows all that are alive, so that they can follow the colour
/// scheme, hear of the connection to the master and be closed together; it remembers where the
/// dialogs of a name stood, and runs modal and modeless dialogs alike.
///
/// A derived dialog builds its controls in its constructor (`StartControls`, then `AddButtons`) and
/// overrides `Validate` and `TransferDataFromWindow`, which report what is wrong themselves: while
/// either says no, the dialog stays open. A modal dialog belongs to whoever runs it with
/// `ShowModal`, on the stack or the heap; a modeless one is made with `new` and destroys itself
/// when it is closed. Unlike a stock dialog it passes the command events of its controls on to its
/// parent. Main thread, except `NotifyConnected`.
class TOLVAN_API wxTolvanDlg : public wxDialog, public wxtColorManaged
{
public:
    /// Registers the dialog but makes no window: for derived classes that call `Create` themselves.
    wxTolvanDlg(const String& positionName, bool modal);
    /// Registers the dialog and makes its window. A null parent stands for the main frame.
    /// `positionName`: section of the options file that keeps position and size; a dialog without
    /// one is neither remembered nor resizable.
    wxTolvanDlg(wxWindow* parent, const wxString& title, const String& positionName, bool modal);
    ~wxTolvanDlg() override;

    /// Gives the dialog a vertical sizer; the one it had is deleted.
    wxBoxSizer* StartControls();
    /// Adds OK, the default button, and Cancel. In a horizontal sizer they go to its right end, in
    /// a vertical one below each other, or side by side at the right if they get their own row.
    void AddButtons(wxBoxSizer* sizer, bool ownRow);
    /// Adds them below what a vertical sizer holds, at its right, as far from the dialog's edges as
    /// content with that border (pixels) to the left and right.
    void AddButtonRow(wxBoxSizer* sizer, int border);

    /// @name Labels
    /// A label; "&" marks its mnemonic. A null parent stands for the dialog.
    /// @{
    /// `sizeDelta`: points larger than the parent's font.
    wxtStaticText* NewStatic(const wxString& text, bool bold = false, bool italic = false,
                             int sizeDelta = 0, long style = 0, wxWindow* parent = nullptr);
    /// In the colour of that name.
    wxtStaticText* NewStatic(const wxString& text, wxWindow* parent, const String& colourName);
    /// @}

    /// A line to separate controls, one pixel high and as wide as the sizer makes it.
    wxtPanel* NewLine(wxWindow* parent = nullptr);
    /// A caption with a line after it.
    wxBoxSizer* NewStaticLine(const wxString& text, wxWindow* parent = nullptr);

    /// @name Event handlers
    /// Event handlers.
    /// @{
    void OnOK(wxCommandEvent& event);
    /// The result is 0, not `wxID_CANCEL`: callers ask for `wxID_OK` only.
    void OnCancel(wxCommandEvent& event);
    void OnClose(wxCloseEvent& event);
    void OnInit(wxInitDialogEvent& event);
    void OnShow(wxShowEvent& event);
    /// Esc clicks Cancel and Enter the default button, wherever the focus is.
    void OnKey(wxKeyEvent& event);
    /// @}

    /// @name Clicks by the program
    /// Click a `wxtButton` of the dialog that is enabled and shown. False: there is none.
    /// @{
    bool EmulateWxtButtonClickIfPresent(int id);
    bool EmulateCancelButton();
    bool EmulateDefaultButton();
    /// @}

    /// Runs the dialog until it is closed. `wxID_OK`: it was confirmed; anything else: it was not.
    int  ShowModal() override;
    bool Show(bool show = true) override;

    wxVisualAttributes GetDefaultAttributes() const override;

    /// The connection to the master has come or gone.
    virtual void OnConnected(bool connected);

    /// Calls `OnConnected` of every live dialog. Any thread: on the main thread it has done so when
    /// it returns; from any other the main thread does so later, and the caller does not wait.
    static void NotifyConnected(bool connected);
    /// Destroys every live dialog. One that runs modally, or is still to be run, belongs to its
    /// caller: it is ended, as if cancelled, and `ShowModal` returns.
    static void CloseAll();
    /// Has every live dialog take its colours from the table again.
    static void RefreshAll();

    struct _Count
    {
        std::uint64_t dialogs = 0;
    };

    static std::set<wxTolvanDlg*>   s_Dialogs;   ///< All that are alive.
    static std::map<String, _Count> g_OpenCount; ///< Live dialogs by position name.

    static Signal0<> s_ModalStarted;  ///< A modal dialog has come up.
    static Signal0<> s_ModalFinished; ///< A modal dialog was closed; once for each that came up.
    static Signal0<> s_DlgClosed;     ///< Any dialog was destroyed.

protected:
    /// Makes the window, as the second constructor does, after the first one was used.
    void CreateDialog(wxWindow* parent, const wxString& title);

private:
    struct ModalRun;

    bool IsRunModally() const;
    void TellFinished();
    void SavePosition();
    void RestorePosition();
    void End(int result);
    void CloseForGood();
    void LeaveParent(wxWindowDestroyEvent& event);

    String        m_PositionName; ///< Empty: not remembered.
    std::uint64_t m_OpenIndex;    ///< Dialogs of that name that were open before this one.
    bool          m_Modal;
    bool          m_Closed = false;     ///< For good: it is not to be run again.
    bool          m_IsFinished = false; ///< The end of the present run has been told.

    wxDECLARE_EVENT_TABLE();
};
