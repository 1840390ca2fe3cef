#include "appearance/wxtCheckListBox.h"

#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "appearance/controls/FlatStyle.h"
#include "appearance/inputs/InputColors.h"
#include "appearance/inputs/ItemDrawing.h"
#include "appearance/inputs/ListKeys.h"
#include "internal/port/Scrollbars.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>
#include <wx/dcclient.h>
#include <wx/renderer.h>
#include <wx/settings.h>
#include <wx/weakref.h>

#include <algorithm>

namespace
{
constexpr int kBoxMargin = 2;        // pixels around an item's box
constexpr int kBestRows = 8;         // that the list asks to be as high as, at most
constexpr int kMinimumWidth = 80;    // pixels
constexpr int kMeasuredItems = 200;  // more of them are not measured one by one
constexpr int kTypingPauseMs = 1000; // after which typing begins a new word

// The box in the row of an item.
wxRect BoxIn(const wxRect& row)
{
    const int side = row.height - 2 * kBoxMargin;
    return wxRect(row.x + kBoxMargin, row.y + kBoxMargin, side, side);
}
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxtCheckListBox, wxVListBox)
    EVT_LEFT_DOWN(wxtCheckListBox::Click)
    EVT_LEFT_DCLICK(wxtCheckListBox::Click)
    EVT_KEY_DOWN(wxtCheckListBox::Key)
    EVT_CHAR(wxtCheckListBox::Char)
    EVT_SET_FOCUS(wxtCheckListBox::Focus)
    EVT_KILL_FOCUS(wxtCheckListBox::Focus)
wxEND_EVENT_TABLE()
// clang-format on

wxtCheckListBox::wxtCheckListBox(wxWindow* parent, wxWindowID id, const wxPoint& position,
                                 const wxSize& size, const wxArrayString& choices, long style,
                                 const wxValidator& validator, const wxString& name)
{
    CALL_ENTRY("wxtCheckListBox::wxtCheckListBox");
    // Selections of several items are not supported.
    const long single = style & ~(wxLB_MULTIPLE | wxLB_EXTENDED);
    Create(parent, id, position, size, appearance::FlatStyle(single), name);
    SetValidator(validator);
    // The toolkit leaves open how many rows are seen, and goes through them all with the focus.
    SetItemCount(0);
    // A font of its own: the toolkit looks up the default one of such a list at length every time.
    SetFont(GetFont());
    internal::UseSolidScrollbars(*this);
    Manage(this);
    appearance::UseInputColors(*this);
    if (!choices.empty())
    {
        Append(choices);
    }
    InvalidateBestSize();
    SetInitialSize(size);
    Bind(wxEVT_PAINT,
         [this](wxPaintEvent& event)
         {
             if (GetCount() > 0 || !HasFocus())
             {
                 event.Skip();
                 return;
             }
             wxPaintDC    dc(this); // there is no item to have the mark
             const wxRect whole(GetClientSize());
             appearance::FillGround(dc, whole, GetBackgroundColour());
             wxtDrawFocus(dc, whole, {GetBackgroundColour()});
         });
}

wxtCheckListBox::wxtCheckListBox(wxWindow* parent, wxWindowID id, const wxPoint& position,
                                 const wxSize& size, int count, const wxString choices[],
                                 long style, const wxValidator& validator, const wxString& name)
    : wxtCheckListBox(parent, id, position, size,
                      wxArrayString(static_cast<size_t>(std::max(count, 0)), choices), style,
                      validator, name)
{
}

wxtCheckListBox::~wxtCheckListBox()
{
    for (unsigned i = 0; HasClientObjectData() && i < GetCount(); ++i)
    {
        ResetItemClientObject(i);
    }
}

bool wxtCheckListBox::IsChecked(unsigned int item) const
{
    return item < GetCount() && m_Items[item]->checked;
}

void wxtCheckListBox::Check(unsigned int item, bool check)
{
    CALL_ENTRY("wxtCheckListBox::Check");
    if (item < GetCount() && m_Items[item]->checked != check)
    {
        m_Items[item]->checked = check;
        RefreshRow(item);
    }
}

unsigned int wxtCheckListBox::GetCheckedItems(wxArrayInt& checked) const
{
    checked.clear();
    for (unsigned i = 0; i < GetCount(); ++i)
    {
        if (m_Items[i]->checked)
        {
            checked.push_back(static_cast<int>(i));
        }
    }
    return static_cast<unsigned>(checked.size());
}

wxString wxtCheckListBox::GetString(unsigned int item) const
{
    return item < GetCount() ? m_Items[item]->text : wxString();
}

void wxtCheckListBox::SetString(unsigned int item, const wxString& text)
{
    CALL_ENTRY("wxtCheckListBox::SetString");
    if (item < GetCount())
    {
        m_Items[item]->text = text;
        RefreshRow(item);
    }
}

void wxtCheckListBox::SetSelection(int item)
{
    CALL_ENTRY("wxtCheckListBox::SetSelection");
    if (item == wxNOT_FOUND || (item >= 0 && item < static_cast<int>(GetCount())))
    {
        wxVListBox::SetSelection(item);
    }
}

void wxtCheckListBox::EnsureVisible(int item)
{
    CALL_ENTRY("wxtCheckListBox::EnsureVisible");
    if (item < static_cast<int>(GetCount()))
    {
        appearance::ShowRow(*this, item, PageRows());
    }
}

wxRect wxtCheckListBox::GetBoxRect(unsigned int item) const
{
    const wxRect row = item < GetCount() ? GetItemRect(item) : wxRect();
    return row.IsEmpty() ? row : BoxIn(row);
}

// Where a text goes in a sorted list: after those that are equal to it.
unsigned wxtCheckListBox::Place(const wxString& text) const
{
    const auto before = [](const wxString& wanted, const std::unique_ptr<Item>& item)
    { return wanted.CmpNoCase(item->text) < 0; };
    const auto place = std::upper_bound(m_Items.begin(), m_Items.end(), text, before);
    return static_cast<unsigned>(place - m_Items.begin());
}

int wxtCheckListBox::DoInsertItems(const wxArrayStringsAdapter& items, unsigned int position,
                                   void** clientData, wxClientDataType type)
{
    CALL_ENTRY("wxtCheckListBox::DoInsertItems");
    int last = wxNOT_FOUND;
    int selection = GetSelection();
    for (unsigned i = 0; i < items.GetCount(); ++i)
    {
        const unsigned place = IsSorted() ? Place(items[i]) : position + i;
        m_Items.insert(m_Items.begin() + place, std::make_unique<Item>(items[i]));
        AssignNewItemClientData(place, clientData, i, type);
        last = static_cast<int>(place);
        selection += selection >= last;
    }
    Recount(selection);
    return last;
}

// The items have become more or less: the list shows them from the same place on.
void wxtCheckListBox::Recount(int selection)
{
    const size_t first = GetVisibleRowsBegin();
    SetItemCount(GetCount());
    if (selection != GetSelection())
    {
        wxVListBox::SetSelection(selection);
        ScrollToRow(first);
    }
    InvalidateBestSize();
    Refresh();
}

void wxtCheckListBox::DoSetItemClientData(unsigned int item, void* data)
{
    m_Items[item]->data = data;
}

void* wxtCheckListBox::DoGetItemClientData(unsigned int item) const
{
    return m_Items[item]->data;
}

void wxtCheckListBox::DoClear()
{
    CALL_ENTRY("wxtCheckListBox::DoClear");
    m_Items.clear();
    wxVListBox::SetSelection(wxNOT_FOUND);
    SetItemCount(0);
    InvalidateBestSize();
}

void wxtCheckListBox::DoDeleteOneItem(unsigned int item)
{
    CALL_ENTRY("wxtCheckListBox::DoDeleteOneItem");
    const int deleted = static_cast<int>(item);
    const int selection = GetSelection();
    m_Items.erase(m_Items.begin() + item);
    Recount(selection == deleted ? wxNOT_FOUND : selection - (selection > deleted));
}

appearance::ItemLook wxtCheckListBox::LookOf(size_t item) const
{
    return appearance::ItemLook::Of(GetBackgroundColour(), GetForegroundColour(),
                                    IsCurrent(item) && IsEnabled());
}

void wxtCheckListBox::OnDrawBackground(wxDC& dc, const wxRect& rect, size_t item) const
{
    const wxColour ground = LookOf(item).ground;
    appearance::FillGround(dc, rect, ground);
    // Where no item is the current one it is the first that is seen.
    const bool isNext = GetSelection() == wxNOT_FOUND && item == GetVisibleRowsBegin();
    if ((IsCurrent(item) || isNext) && HasFocus())
    {
        wxtDrawFocus(dc, rect, {ground});
    }
}

void wxtCheckListBox::OnDrawItem(wxDC& dc, const wxRect& rect, size_t item) const
{
    const wxRect box = BoxIn(rect);
    const int    flags = (m_Items[item]->checked ? int(wxCONTROL_CHECKED) : 0) |
                      (IsEnabled() ? 0 : int(wxCONTROL_DISABLED));
    wxRendererNative::Get().DrawCheckBox(const_cast<wxtCheckListBox*>(this), dc, box, flags);
    wxRect text = rect;
    text.SetLeft(box.GetRight() + kBoxMargin);
    text.width = rect.GetRight() - text.x + 1;
    dc.SetFont(GetFont());
    appearance::DrawItemText(dc, text, m_Items[item]->text, LookOf(item).ink);
}

wxCoord wxtCheckListBox::OnMeasureItem(size_t) const
{
    // Finding it takes the toolkit long, and it asks with every item that comes.
    m_ItemHeight = m_ItemHeight ? m_ItemHeight : appearance::ItemHeight(*this);
    return m_ItemHeight;
}

bool wxtCheckListBox::SetFont(const wxFont& font)
{
    m_ItemHeight = 0;
    return wxVListBox::SetFont(font);
}

// Those that are wholly seen.
int wxtCheckListBox::PageRows() const
{
    return std::max(1, GetClientSize().y / OnMeasureItem(0));
}

void wxtCheckListBox::InitEvent(wxCommandEvent& event, int item)
{
    wxVListBox::InitEvent(event, item);
    if (item < 0 || item >= static_cast<int>(GetCount()))
    {
        return;
    }
    const unsigned index = static_cast<unsigned>(item);
    event.SetString(m_Items[index]->text);
    if (HasClientObjectData())
    {
        event.SetClientObject(wxItemContainer::GetClientObject(index));
    }
    else if (HasClientUntypedData())
    {
        event.SetClientData(wxItemContainer::GetClientData(index));
    }
}

wxSize wxtCheckListBox::DoGetBestClientSize() const
{
    int       width = kMinimumWidth;
    const int charWidth = GetCharWidth();
    for (const auto& item : m_Items)
    {
        width = std::max(width, GetCount() <= kMeasuredItems
                                    ? appearance::ItemTextWidth(*this, item->text)
                                    : appearance::GuessedTextWidth(charWidth, item->text.length()));
    }
    const int rows = std::max(1, std::min(static_cast<int>(GetCount()), kBestRows));
    const int height = OnMeasureItem(0);
    return wxSize(width + height + wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this),
                  rows * height);
}

void wxtCheckListBox::DoMoveWindow(int x, int y, int width, int height)
{
    internal::FitScrollbars(*this, {width, height});
    wxVListBox::DoMoveWindow(x, y, width, height);
}

void wxtCheckListBox::DoEnable(bool enabled)
{
    wxVListBox::DoEnable(enabled);
    RefreshColors();
    Refresh();
}

void wxtCheckListBox::Focus(wxFocusEvent& event)
{
    event.Skip();
    Refresh();
}

void wxtCheckListBox::Toggle(int item)
{
    const unsigned index = static_cast<unsigned>(item);
    Check(index, !IsChecked(index));
    wxCommandEvent event(wxEVT_CHECKLISTBOX, GetId());
    InitEvent(event, item);
    ProcessWindowEvent(event);
}

void wxtCheckListBox::Click(wxMouseEvent& event)
{
    CALL_ENTRY("wxtCheckListBox::Click");
    const int item = HitTest(event.GetPosition());
    if (item == wxNOT_FOUND ||
        !GetBoxRect(static_cast<unsigned>(item)).Contains(event.GetPosition()))
    {
        event.Skip();
        return;
    }
    // The second click of two quick ones on a box counts as a click, not as a choice of the item.
    const wxWeakRef<wxWindow> self(this);
    SetFocus();
    if (self && item < static_cast<int>(GetCount()))
    {
        Toggle(item);
    }
    if (self && item < static_cast<int>(GetCount()))
    {
        MoveSelection(item);
    }
}

bool wxtCheckListBox::IsTyping() const
{
    return !m_Typed.empty() && wxGetLocalTimeMillis() - m_TypedAt < kTypingPauseMs;
}

void wxtCheckListBox::Key(wxKeyEvent& event)
{
    CALL_ENTRY("wxtCheckListBox::Key");
    const auto row = appearance::RowForKey(event.GetKeyCode(), GetSelection(),
                                           static_cast<int>(GetCount()), PageRows());
    if (row && !event.AltDown())
    {
        MoveSelection(*row);
    }
    else if (event.GetKeyCode() != WXK_SPACE || event.HasModifiers())
    {
        event.Skip();
    }
    else if (GetSelection() != wxNOT_FOUND)
    {
        Toggle(GetSelection());
    }
}

void wxtCheckListBox::MoveSelection(int item)
{
    EnsureVisible(item);
    if (item != wxNOT_FOUND && item != GetSelection())
    {
        SetSelection(item);
        SendSelectedEvent();
    }
}

void wxtCheckListBox::Char(wxKeyEvent& event)
{
    CALL_ENTRY("wxtCheckListBox::Char");
    const wxChar character = event.GetUnicodeKey();
    if (character <= WXK_SPACE || character == WXK_DELETE || event.HasModifiers())
    {
        event.Skip();
        return;
    }
    Type(character);
}

void wxtCheckListBox::Type(wxChar character)
{
    m_Typed = IsTyping() ? m_Typed + character : wxString(character);
    m_TypedAt = wxGetLocalTimeMillis();
    // The first letter goes on to the next such item; with further ones the selection may stay.
    const int start = std::max(0, GetSelection() + (m_Typed.length() == 1 ? 1 : 0));
    const int count = static_cast<int>(GetCount());
    MoveSelection(appearance::FindByStart(
        m_Typed, start, count, [this](int item) { return m_Items[size_t(item)]->text; }));
}
