#pragma once

#include "appearance/wxTolvanColors.h"
#include "listviews/wxDoubleBufferedWindow.h"
#include "textviews/wxTextLineEvents.h"
#include "textviews/wxTextLineParts.h"
#include "textviews/wxTextRule.h"
#include "vesta/Export.h"
#include "vesta/Path.h"
#include "vesta/String.h"
#include "vesta/Time.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

class Exception;
class wxMenu;
class wxTextLineSearchPanel;
class wxTextSource;
struct wxTextStretch;

/// A read-only view of long logs and command output: whole lines of any bytes in one fixed-pitch
/// font, with selection of lines, copying, saving, a context menu and a search bar. The line is the
/// unit of everything; there is no caret. Shift with the arrows, Page Up and Page Down, and a click
/// with Shift, select as far as another line; the Menu key opens the menu there. Text that is not
/// valid UTF-8 is shown byte by byte, and everything is stored, copied and saved byte for byte
/// (tabs are stored as four spaces). Control characters are shown by their pictures or two narrow
/// letters each, in a quieter colour than text.
///
/// There is no limit on lines but memory, or, for those that stay in a file, 2,147,483,646, unless
/// `SetLineLimit` sets one for a stream without end. The search bar is a sibling of the control;
/// whoever lays the two out puts `GetSearchPanel()` under it. Main thread only.
class TOLVAN_API wxTextLineCtrl : public wxDoubleBufferedWindow, public wxtColorManaged
{
public:
    /// Command ids of the context menu.
    enum MenuId
    {
        id_SelectAll = 7301,
        id_SelectNone = 7302,
        id_Copy = 7303,
        id_ScrollToTop = 7304,
        id_ScrollToBottom = 7305,
        id_SaveAs = 7306,
        id_Search = 7307,
        id_CopyPlain = 7308 ///< Offered unless lines are shown raw.
    };

    /// What becomes of the bytes by which a program directs a terminal: the sequences that begin
    /// with an escape character, and carriage returns within a line.
    enum class Escapes
    {
        Raw,     ///< Every byte is shown.
        Plain,   ///< They do what they would do in a terminal, but for colours and the like.
        Coloured ///< They do what they would do in a terminal.
    };
    /// Whether only matching lines are shown below, where a host has a place for them; see
    /// `wxTextLinePanes`.
    static constexpr int id_OnlyMatching = 7351;

    /// Command ids of what a host may offer; see `OfferReadingCommands`.
    enum ReadingId
    {
        id_GoToLine = 7321,
        id_ToggleBookmark = 7322,
        id_NextBookmark = 7323,
        id_PreviousBookmark = 7324,
        id_RemoveBookmarks = 7325,
        id_WrapLines = 7326
    };
    /// And of the lines that rules call errors.
    enum RuleId
    {
        id_NextError = 7341,
        id_PreviousError = 7342
    };

    explicit wxTextLineCtrl(wxWindow* parent);
    ~wxTextLineCtrl() override;

    /// Adds a line and returns its index: at the end, or with `sorted` before the first line that
    /// is not less than it, byte by byte, among lines that the caller keeps sorted. It does not
    /// scroll. -1: the limit has dropped it with the oldest ones.
    int Append(const String& line, bool sorted);
    /// Adds a line at the end that came at that time, if it is kept; `Time()`: nobody knows when.
    int Append(const String& line, Time came);
    /// Adds lines at the end that stay in a source, as `wxFindTextLines` has found them, and are
    /// read when they are seen: one costs less than a byte. They are lines as all others. Gives how
    /// many it could add: 2,147,483,646 lines at most are in a view.
    int AppendStored(const std::shared_ptr<const wxTextSource>& source,
                     const std::vector<wxTextStretch>&          stretches);
    /// The line was cut and the next one is its rest: they are saved and copied as one. An index
    /// without a line is logged and ignored.
    void SetGoesOn(int line);
    /// Removes the line; those after it move up. An index without a line is logged and ignored.
    void Erase(int index);
    /// Removes all lines. The scrollbars stay as they are until the next `Append` or `Erase`, so
    /// that a view that is filled anew does not jump.
    void Clear();

    /// Keeps that many lines at most, 0 or less: all. The first ones go when more come, a sixteenth
    /// of the limit at a time; the view and the selection stay on their lines.
    void SetLineLimit(int lines);
    int  GetLineLimit() const { return m_LineLimit; }

    int GetLineCount() const;
    /// The lines that can be scrolled to at this size of the text: a scrollbar has an end.
    int    GetReachableLines() const;
    String GetLine(int index) const; ///< As stored; empty when there is no such line.

    /// @name Following
    /// A view that follows its end stays there when lines come. Off until a host wants it. From
    /// then on scrolling away from the end, or a hit of the search, ends it, and scrolling to the
    /// end begins it anew; hosts hear of it by `wxtEVT_TEXT_FOLLOW`.
    /// @{
    void SetFollowEnd(bool follow); ///< On: once the view stands at its end. Off: for good.
    bool GetFollowEnd() const { return m_FollowEnd; }
    /// Goes to the end and stays there, or stays here until the view is scrolled to its end.
    void SetFollowing(bool follow);
    bool IsFollowing() const; ///< The next line will be followed.
    /// A small button in the corner, and one in the search bar, that show the state and switch it.
    void ShowFollowButton(bool show);
    /// @}

    void ScrollToTop();
    void ScrollToBottom();

    void SelectAll();
    void SelectNone();
    void StopSelecting();            ///< By the mouse.
    int  GetSelectionAnchor() const; ///< -1 when nothing is selected.
    int  GetSelectionEnd() const;    ///< -1 when nothing is selected.
    bool IsSelecting() const { return m_Selecting; }
    /// Whether the text of selected lines has the window's colour as it is, which the selection's
    /// leaves hard to read in dark schemes, or, with `on`, that or its dark counterpart, whichever
    /// reads better. Off until a host wants it.
    void SetReadableSelection(bool on);
    bool HasReadableSelection() const { return m_ReadableSelection; }
    /// Whether a part of one line can be selected, too: with Alt or Ctrl and a drag by characters,
    /// with a double click and a drag by words, and with Shift and a click as far as there. Copying
    /// and the search take that part. Off until a host wants it.
    void SelectWithinLines(bool on);
    bool SelectsWithinLines() const { return m_SelectsWithinLines; }
    /// The part, as stored; empty when whole lines or nothing is selected.
    String GetSelectedPart() const;
    /// Shows the line under the pointer lighter; -1 for none.
    void SetHighlightLine(int line);
    int  GetHighlightLine() const { return m_HoverLine; }

    /// @name Gutter
    /// What a view tells of its lines at the left of the text, where it does not scroll sideways; a
    /// click there is one on the line. None until a host wants it, and of a view that is too narrow
    /// for it and text, only what there is room for.
    /// @{
    /// The numbers of lines, from 1 on. Those that a limit has dropped count.
    void ShowLineNumbers(bool show);
    bool HasLineNumbers() const;
    /// When each line came, as "17:05:09", with the day where it changes: of lines that came since
    /// `KeepArrivalTimes`, without which there are none to show.
    void ShowArrivalTimes(bool show);
    bool HasArrivalTimes() const;
    /// Has the view remember when lines come, from now on: eight bytes for those that come one
    /// after the other within a second.
    void KeepArrivalTimes();
    /// Where each line comes from, where that is one of several places, as files that are merged:
    /// the place's name, shortened if need be, and a bar, in a colour of its own that can be read
    /// in every scheme; a narrow view has the bar only. `originOf` is asked for the number of a
    /// line's place, from 0 on, whenever the line is drawn; another number stands for none of them.
    /// No names: there is no such column.
    void ShowOrigins(const std::vector<String>& names, std::function<int(int line)> originOf);
    const std::vector<String>& GetOrigins() const; ///< The names.
    /// @}

    /// @name Finding a place again
    /// @{
    /// Selects the line and shows it in the middle. An index without a line is logged and ignored.
    void GoToLine(int line);
    /// Asks the user for the number of a line, or "+100", "-5" or "50%", and goes there.
    void AskForLine();
    /// A mark in the gutter, which is there as long as there is one. It stays with its line. An
    /// index without a line is logged and ignored.
    void             SetBookmark(int line, bool on = true);
    bool             HasBookmark(int line) const;
    std::vector<int> GetBookmarks() const; ///< From top to bottom.
    void             RemoveBookmarks();
    /// Goes to the next (previous) bookmark from the selection's end, or what is seen, on, and past
    /// the last (first) one to the first (last). False: there is none.
    bool GoToBookmark(bool forward);
    /// Whether the user has all this by keys (Ctrl+G, Ctrl+F2, F2, Shift+F2) and in the context
    /// menu. Off until a host wants it.
    void OfferReadingCommands(bool offer);
    bool OffersReadingCommands() const;
    /// Which of those commands a key asks for; `wxID_NONE`: none of them.
    static int ReadingCommandOf(const wxKeyEvent& event);
    /// @}

    /// Places the selected lines on the clipboard, each followed by a newline, as text and byte for
    /// byte as "application/octet-stream". Nothing selected places an empty text.
    void CopySelectionToClipboard();
    /// The same as keys do it, while the window lives on. `plain`: as `CopyPlainTextToClipboard`.
    void BeginCopying(bool plain = false);
    bool IsCopying() const { return m_Copying != nullptr; }
    void StopCopying(); ///< As Esc does. The clipboard stays as it is.
    /// @name Saving
    /// Byte for byte, each line followed by the platform's end of line.
    /// @{
    /// Asks for a file, unless one is being saved, and begins. Throws an `Exception*`.
    void SaveAs();
    /// Writes the lines that are there now, while the window lives on; a note says how far it is.
    /// Throws what fails at once; later the user is told. One at a time: another one ends it.
    void BeginSaving(const Path& path);
    bool IsSaving() const { return m_Saving != nullptr; }
    void StopSaving(); ///< As Esc does. What the file held before stays.
    /// Writes all lines before it returns, however long that takes. Throws an `Exception*`.
    void SaveTo(const Path& path) const;
    /// @}

    /// Shows or hides the search bar.
    void                   ToggleSearch();
    wxTextLineSearchPanel* GetSearchPanel() const; ///< Null once its parent destroyed it.
    /// Looks for the text, from the line after (before) the last hit, or from the first (last)
    /// visible line when there was none, once round all lines. The first hit in a line is marked
    /// and scrolled into view; without one the result is false and the last hit stays. Without
    /// `caseSensitive`, letters are the same as their lower case.
    bool Search(const String& text, bool forward, bool caseSensitive);
    int  GetMarkedLine() const { return m_MarkedLine; } ///< The last hit; -1 for none.
    /// Characters of the stored line, or, of a hit of the search bar where escape sequences are
    /// followed, of what is shown of it; -1 for none.
    int GetMatchColumn() const;
    int GetMatchLength() const; ///< The same characters.

    /// @name For the search
    /// What a search that goes on by itself needs of the view: its lines, and word of what becomes
    /// of them; where one begins, from the last hit on or with what is seen; the hit shown that was
    /// found, and where it begins, in line -1 when there is none; what finds the hits to be marked,
    /// null for none. With `asShown` places are those in what is shown of a line, as they are for
    /// the hits that are marked, otherwise in the stored line.
    /// @{
    const textviews::LineStore& Lines() const { return *m_Lines; }
    void                        Watch(textviews::LineWatcher& watcher, bool on);
    textviews::SearchPlace      SearchStart(bool forward, bool asShown) const;
    textviews::SearchPlace      VisibleStart(bool forward) const;
    void                        ShowHit(const textviews::LineMatch& match, bool asShown);
    textviews::SearchPlace      ShownHit(bool asShown) const;
    void                        MarkHits(std::shared_ptr<textviews::HitFinder> finder);
    void ShowHitsInOverview(std::shared_ptr<textviews::HitFinder> finder, bool asShown);
    /// @}

    /// @name Escape sequences
    /// Raw until a host wants something else. Then the sequences are not shown. In `Coloured` they
    /// colour what is shown, with the scheme's colours for the sixteen that have names, and each
    /// colour is made as much lighter or darker as text needs to be read on its ground; bold,
    /// underlined and inverse text is shown so. Every line begins without colours, whatever the one
    /// before it has set. After a carriage return within a line, as programs print it to tell how
    /// far they are, what follows stands in the place of what was there. A sequence that is wrong,
    /// too long or cut off by the line's end is shown as any text. Lines are stored, copied, saved
    /// and, by `Search`, searched byte by byte all the same. The search bar looks for what is
    /// shown.
    /// @{
    void    SetEscapes(Escapes escapes);
    Escapes GetEscapes() const { return m_Escapes; }
    /// As `CopySelectionToClipboard`, but what `Plain` shows of the lines.
    void CopyPlainTextToClipboard();
    /// @}

    /// @name Rules
    /// What the lines are searched for while they are seen, to colour them: their text, or with
    /// `SetEscapes` what is shown of it. None until a host or its user wants some. The first rule
    /// that is found at a place has it, and what it is about, to itself. A rule's colour is made as
    /// much lighter or darker as it takes to be read on its ground. A selected line, the hit of the
    /// search and marked hits look as without rules; colours of the line's own escape sequences go
    /// before those of a rule for lines, and after those of a rule for matches. What a line is, and
    /// whether it is coloured as a whole, its first 64 KiB decide; one of more than 1 MiB that
    /// holds escape sequences which are not shown has no rules.
    /// @{
    /// A rule with an expression that is none is found nowhere.
    void                           SetRules(const std::vector<wxTextRule>& rules);
    const std::vector<wxTextRule>& GetRules() const;

    /// Begins to look for the next (previous) line that the rules call an error, from the
    /// selection's end or what is seen on, once round all lines; where there is none, for the next
    /// warning. It is selected and shown, at once or when it is found while the window lives on,
    /// and a note in the view says when the way went past an end, and when there is neither.
    void     FindError(bool forward);
    bool     IsFindingError() const;
    void     StopFindingError(); ///< As Esc does.
    wxString GetNote() const;    ///< What is noted at the moment; empty: nothing.

    /// A narrow strip beside the vertical scrollbar that shows where in all lines errors and
    /// warnings of the rules are, hits of the search while its bar is open, and bookmarks; and
    /// which lines are seen. A press or a drag scrolls there. It is worked out bit by bit while
    /// nothing else happens. None until a host wants it.
    void ShowOverview(bool show);
    bool HasOverview() const;
    bool IsOverviewUnderWay() const; ///< Lines are left to be looked at.
    /// @}

    /// @name Size of the text
    /// In points. Ctrl with the wheel, plus and minus change it, Ctrl+0 takes it back; a host hears
    /// of that by `wxtEVT_TEXT_SIZE` and may keep it. The line at the top stays there.
    /// @{
    static constexpr int k_LeastSize = 5;
    static constexpr int k_MostSize = 40;

    void SetTextSize(int points); ///< Between the least and the most.
    int  GetTextSize() const { return m_TextSize; }
    /// @}

    /// Whether a line that is wider than the view goes on in rows below. Scrolling is then by rows,
    /// and not sideways; scroll positions still count lines. Off until a host wants it; with
    /// `OfferReadingCommands` the user switches it (Alt+Z), and `wxtEVT_TEXT_WRAP` tells of that.
    void SetWrap(bool on);
    bool IsWrapped() const;

    void SetScrollPos(int orientation, int position, bool refresh = true) override;
    bool ScrollLines(int lines) override;
    bool ScrollPages(int pages) override;

    /// Pops the menu up at the pointer, with the standard entries at its end if wanted.
    void HandleContextMenu(wxMenu& menu, bool addStandardItems);

    /// @name Handlers; a menu bar's commands of the ids above are passed on to `OnMenu`.
    /// @{
    void OnLeftClick(wxMouseEvent& event);
    void OnLeftDouble(wxMouseEvent& event);
    void OnLeftUp(wxMouseEvent& event);
    void OnCaptureLoss(wxMouseCaptureLostEvent& event);
    void OnMouseMove(wxMouseEvent& event);
    void OnMouseLeave(wxMouseEvent& event);
    void OnRightClick(wxMouseEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void OnKey(wxKeyEvent& event);
    void OnWheel(wxMouseEvent& event);
    void OnSize(wxSizeEvent& event);
    void OnMenu(wxCommandEvent& event);
    /// @}

protected:
    void DrawBitmap() override;
    /// Tells the user that the lines could not be saved; here as `wxTellProblem` does.
    virtual void TellSaveProblem(const wxString& reason);

private:
    friend class textviews::MatchesView;

    /// For a view of other lines, without a search bar of its own.
    wxTextLineCtrl(wxWindow* parent, std::unique_ptr<textviews::LineStore> lines);

    /// What another view's lines are there.
    /// @{
    virtual int64_t NumberOf(int line) const; ///< As it is shown left of the line.
    virtual bool    IsMarked(int line) const; ///< By a bookmark.
    virtual int     OriginOf(int line) const; ///< The number of its place; -1: none is known.
    virtual bool    IsQuiet(int) const { return false; }
    /// The view whose bookmarks and rules they are.
    virtual const wxTextLineCtrl& Whole() const { return *this; }
    virtual bool                  RunReadingCommand(int id); ///< False: it is another command.
    /// @}

    textviews::TextGeometry Geometry() const;
    textviews::TextPalette  Palette() const;
    textviews::LineState    StateOf(int line) const;
    int                     EndOfDrawnLines(const textviews::TextGeometry& geometry) const;
    textviews::LineLook     LookOf(const textviews::LineState&   state,
                                   const textviews::TextPalette& palette) const;
    void DrawText(const textviews::TextGeometry& geometry, const textviews::LineLook& look,
                  textviews::LinePainter& painter, int line) const;
    bool DrawRuled(const textviews::TextGeometry& geometry, const textviews::LineLook& look,
                   textviews::LinePainter& painter, int line) const;
    void DrawRuledText(const textviews::TextGeometry& geometry, const textviews::LineLook& look,
                       textviews::LinePainter& painter, int line, std::string_view text) const;
    void DrawRuledPieces(const textviews::TextGeometry& geometry, const textviews::LineLook& look,
                         textviews::LinePainter& painter, int line,
                         const std::vector<textviews::ShownPiece>& pieces,
                         const textviews::RuleWork&                work) const;
    textviews::LineLook LookOfRules(const textviews::LineLook& look, int rule) const;
    void DrawLine(const textviews::TextGeometry& geometry, const textviews::TextPalette& palette,
                  textviews::LinePainter& painter, int line) const;
    void DrawHit(const textviews::TextGeometry& geometry, const textviews::LineLook& look,
                 textviews::LinePainter& painter) const;
    std::vector<wxRect> HitRows(const textviews::TextGeometry& geometry) const;
    void DrawMarks(const textviews::TextGeometry& geometry, const textviews::LineLook& look,
                   textviews::LinePainter& painter, int line) const;
    std::vector<wxRect> MarksOf(const textviews::TextGeometry& geometry, int line) const;
    void DrawSpan(const textviews::TextGeometry& geometry, const textviews::TextPalette& palette,
                  textviews::LinePainter& painter, int line) const;
    std::vector<wxRect> BoxesOf(const textviews::TextGeometry& geometry, int line,
                                const std::vector<textviews::ByteSpan>& parts) const;
    void DrawFocus(const textviews::TextPalette& palette, textviews::LinePainter& painter) const;
    void AskForChangedLines();
    textviews::GutterRow     GutterRowOf(int line) const;
    void                     FitGutter();
    void                     FitContentWidth();
    int                      InsertSorted(const String& line);
    void                     Extend(const String& line, int index);
    void                     Widen(std::string_view line);
    void                     WidenTo(int64_t cells);
    void                     MeasureAll();
    void                     ReadRulesAnew();
    void                     FinishFinding();
    void                     ShowNote(const wxString& text, bool stays = false);
    void                     OnRulesIdle(wxIdleEvent& event);
    int                      OverviewWidth() const;
    textviews::StripScale    OverviewScale() const;
    void                     FitOverview();
    void                     UpdateOverview();
    void                     ShowOverviewSoon();
    void                     GoToRow(int row, bool isPress);
    wxString                 TipOfRow(int row) const;
    void                     TellInserted(int first, int count);
    void                     Drop(int index);
    int                      DropOldest();
    void                     LinesMoved();
    bool                     IsLine(int line, const char* where) const;
    bool                     IsPlaceChosen() const;
    int                      CurrentLine() const;
    void                     ShowInMiddle(int line);
    void                     ToggleBookmark();
    void                     AddReadingCommands(wxMenu& menu) const;
    void                     AutoScroll(int y);
    void                     ScrollBy(wxEventType type, int orientation);
    textviews::FollowButton* FollowButton() const;
    textviews::Wrapping&     Wrap() const; ///< It knows what there is room for now.
    textviews::ViewTop       TopNow() const;
    textviews::TextAnchor    TopAnchor() const;
    void                     GoToTop(const textviews::ViewTop& top);
    void                     GoToAnchor(const textviews::TextAnchor& anchor);
    void                     SettleTop();
    void                     ShowWrappedCells(int line, int64_t first, int64_t end);
    void                     ChangeWrap();
    bool                     IsAtEnd() const;
    void                     TellFollowing();
    void                     ChangeTextSize(int points);
    textviews::ByteSpan      PartAt(const wxPoint& place, int line, textviews::SpanUnit by) const;
    bool                     BeginPart(const wxMouseEvent& event, int line);
    void                     DragPart(const wxPoint& place);
    void                     SaveOrTell();
    void                     TellSaveProblem(const Exception& exception);
    using Run = std::unique_ptr<textviews::LineRun>;
    void                               Begin(Run& run);
    void                               RunOn(Run& run, int ms);
    void                               EndRun(Run& run);
    void                               StopRun(Run& run, const wxString& note);
    void                               OnRunIdle(wxIdleEvent& event);
    void                               OnCtrlKey(int key);
    bool                               SelectByKey(int key, bool ctrl);
    void                               ShowLine(int line);
    String                             SelectedText(bool plain) const;
    bool                               IsTooMuchToCopy();
    void                               ScrollToHit();
    std::vector<textviews::ShownCells> CellsOfHit() const;
    textviews::ByteSpan                HitBytes(bool asShown) const;
    void                               TakeHitAsStored();
    void                               MakeSearchPanel();
    void                               LookForPart(wxTextLineSearchPanel& panel) const;
    void                               FindAgain(bool forward);
    void                               StopSearch();
    void                               ToggleOnlyMatching();
    void                               TellLook();

    const textviews::_FontExtents*            m_Font; ///< Never null.
    std::unique_ptr<textviews::LineStore>     m_Lines;
    std::unique_ptr<textviews::TextPlaces>    m_Places;
    textviews::ShownLines*                    m_Shown; ///< It is the places.
    Escapes                                   m_Escapes = Escapes::Raw;
    std::unique_ptr<textviews::StyleColours>  m_Colours;
    std::unique_ptr<textviews::VisibleHits>   m_Hits; ///< Those that are marked.
    int                                       m_MarkedLine = -1;
    std::unique_ptr<textviews::MarkedHit>     m_Hit; ///< Never null.
    std::unique_ptr<textviews::TextSelection> m_Selection;
    std::unique_ptr<textviews::DrawnLines>    m_Drawn;
    std::unique_ptr<textviews::Gutter>        m_Gutter;          ///< Never null.
    std::unique_ptr<textviews::Ruling>        m_Ruling;          ///< Never null.
    std::unique_ptr<textviews::Wrapping>      m_Wrap;            ///< Never null.
    std::unique_ptr<textviews::LineRun>       m_Saving;          ///< Null: none.
    std::unique_ptr<textviews::LineRun>       m_Copying;         ///< Null: none.
    int                                       m_TextWidth = 0;   ///< Pixels of the longest line.
    int                                       m_LineLimit = 0;   ///< 0: none.
    int64_t                                   m_StoredCells = 0; ///< Of the widest line in a file.
    bool                m_Selecting = false; ///< The button is down, mouse captured.
    bool                m_SelectsWithinLines = false;
    bool                m_MenuIsOpen = false;
    bool                m_ReadableSelection = false;
    int                 m_TextSize;
    int                 m_SizeTurn = 0;      ///< Of the wheel.
    bool                m_MayFollow = false; ///< A host wants it.
    bool                m_ToldFollowing = false;
    wxPoint             m_MenuPlace = wxDefaultPosition; ///< Client pixels; default: the pointer's.
    int                 m_HoverLine = -1;
    int                 m_MenuLine = -1;             ///< The menu that is open was asked for there.
    wxWeakRef<wxWindow> m_SearchPanel;               ///< Child of the parent.
    bool                m_OwnsSearchPanel = false;   ///< It goes with the view.
    std::vector<textviews::LineWatcher*> m_Watchers; ///< Not owned.
    wxWeakRef<wxWindow>                  m_FollowButton; ///< A child; none unless it is shown.

    wxDECLARE_EVENT_TABLE();
};
