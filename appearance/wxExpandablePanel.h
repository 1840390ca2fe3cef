#pragma once

#include "appearance/wxtColorManaged.h"
#include "appearance/wxtStockControls.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/sizer.h>

namespace appearance
{
class _ClickStatic;
}

/// A panel with a header (a small button and a caption, either of which opens and closes it) above
/// a content that can be hidden. The options file remembers whether it is open.
///
/// A derived class sets section, key and captions, calls `CreateInfrastructure` and adds its
/// content to `m_ContentSizer`. Main thread.
class TOLVAN_API wxExpandablePanel : public wxtPanel
{
public:
    /// Ids of the header's button and caption. Clicking the caption sends the button's event.
    enum
    {
        id_Expand = 8313,
        id_Caption = 8314
    };

    /// Builds no children yet. `orientation`: how the header lies to the content.
    wxExpandablePanel(wxWindow* parent, wxOrientation orientation);

    /// Shows or hides the content as `m_Expanded` says, and lays out whatever that moves: the
    /// windows around the panel, up to the top-level one.
    void Expand();
    /// Opens or closes the panel and stores that.
    void OnExpand(wxCommandEvent& event);

    bool IsExpanded() const { return m_Expanded; }

protected:
    /// Builds header and content sizer. A panel that is not `expandable` stays open under a greyed
    /// caption, whatever is stored. `tip`: the tool tip of all of it.
    void CreateInfrastructure(const wxString& tip, bool expandable);

    bool          m_Expanded = false; ///< The content is shown.
    wxOrientation m_Orientation;
    /// @name Settings
    /// Where the options file keeps the state; set before the header is built.
    /// @{
    String m_Section;
    String m_Key;
    /// @}
    /// @name Captions
    /// The caption in either state; set before the header is built. `Expand` shows a change.
    /// @{
    wxString m_CollapsedCaption;
    wxString m_ExpandedCaption;
    /// @}
    wxtBitmapButton*          m_ExpandButton = nullptr; ///< Null when the panel is not expandable.
    appearance::_ClickStatic* m_Caption = nullptr;
    wxBoxSizer*               m_ContentSizer = nullptr; ///< Belongs to the panel's sizer.

private:
    wxSizer*        CreateHeader(const wxString& tip, bool expandable);
    void            CreateButton(const wxString& tip);
    const wxString& Caption() const;
    void            TakeKeysFromContent();

    wxDECLARE_EVENT_TABLE();
};
