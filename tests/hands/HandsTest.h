#pragma once

#include "gallery/GalleryFrame.h"
#include "tests/hands/Hand.h"
#include "tests/support/FrameTest.h"

#include <wx/weakref.h>

class wxDBTreeListCtrl;

/// The control if it is a tree, or the tree in a selector of jobs; else null.
wxDBTreeListCtrl* TreeOf(wxWindow* control);

/// The gallery under a real pointer and real keys. Nothing is given to a control by a test but what
/// comes from the X server; every deed is over, its handlers too, when it returns.
class HandsTest : public UserFolderTest
{
protected:
    HandsTest();
    ~HandsTest() override;

    /// A new gallery in place of the one that is there.
    void          Open();
    GalleryFrame* Frame() const { return m_Frame; }

    /// The control with that label, value or name; null when there is none.
    wxWindow*                         Named(const wxString& name) const;
    template <class Control> Control* First() const
    {
        return dynamic_cast<Control*>(
            FirstOf([](wxWindow* each) { return dynamic_cast<Control*>(each) != nullptr; }));
    }

    /// Has the hand do what the words say, on that control or, with "leave" before it, beside it.
    ///   enter leave             to the middle of the control (a list: of its third row; a
    ///                           notebook: of its first tab); to a place where there is nothing
    ///   title edge wider narrower
    ///                           of a list: to its second title, that one's right edge, off from
    ///                           there; of a notebook: to its second tab, to its third one
    ///                           of a text view: to its first, third and fifth line
    ///   box below               to the third box of a check list, the cross of a notebook's second
    ///                           tab; to the first item of an open list
    ///   press release click     of the left button; "right" or "middle" before it: of that one
    ///   double                  two clicks, as fast as can be
    ///   notch+ notch-           of the wheel, down and up
    ///   opened closed           waits until its list is so
    ///   held freed              waits until a control holds the pointer, until none does
    ///   later                   lets the toolkit's timers run
    ///   shut                    closes its list if it is open
    ///   focus disable enable hide show destroy theme dialog refill throw
    ///                           what the program does meanwhile; "page-" before it: to what the
    ///                           control lies in; "then" before all: in the handler of the next
    ///                           event
    ///   any other word          a key, as in "shift+Tab"
    void Do(wxWindow* control, const std::string& words);
    void MoveTo(const wxPoint& screen);
    void Button(int button, bool press);
    void Press(const std::string& key);

    /// The window that gets the keys; found with one that no control knows.
    wxWindow* WhoHasTheKeys();
    bool      HasTheKeys(const wxWindow* control);

    /// What the frame was told since it was asked last: the names of the events, with the number of
    /// the item where they have one.
    std::string Heard();

    Hand                    m_Hand;
    wxWeakRef<GalleryFrame> m_Frame;

private:
    class KeyWatch;

    wxWindow* FirstOf(const std::function<bool(wxWindow*)>& is) const;
    void      Settle();
    void      Aim(wxWindow* control, const std::string& word);
    wxPoint   PlaceOf(wxWindow* control, const std::string& word) const;
    bool      DoWord(wxWindow* control, const std::string& word);
    void      Clicks(int count);
    void      Notch(bool down);
    void      StepAside() { m_Aside = -m_Aside; }

    static constexpr int kAside = 4; // pixels; clicks at one place would make a double one

    void Listen(wxEvtHandler& at, bool onlyThen);
    void OnHeard(wxEvent& event, const std::string& what);
    void DoInMainLoop(wxWindow* control, const std::string& words);

    std::string           m_Heard;
    wxWeakRef<wxWindow>   m_Page;          ///< What all controls lie in.
    bool                  m_Moves = false; ///< The page is about to be laid out again.
    std::function<void()> m_Then;          ///< For the handler of the next event.
    int                   m_MouseButton = 1;
    int                   m_Aside = kAside; ///< Pixels right of the middle, of the next click.
};
