#pragma once

#include "benchmarks/BenchSupport.h"
#include "benchmarks/TextWorkload.h"
#include "textviews/wxTextLineCtrl.h"

/// What the benchmarks of text views share: the view in a frame, and lines to fill it with.

constexpr int kMillion = 1000000;

/// The view with a count of its paintings, and a way to force one.
class TextLineView : public wxTextLineCtrl
{
public:
    using wxTextLineCtrl::wxTextLineCtrl;

    void Repaint();
    int  Drawn() const { return m_Drawn; }

protected:
    void DrawBitmap() override;

private:
    int m_Drawn = 0;
};

/// A view in a frame of its own.
class TextLineStage
{
public:
    TextLineStage();
    ~TextLineStage() { CloseFrame(m_Frame); }
    TextLineStage(const TextLineStage&) = delete;
    TextLineStage& operator=(const TextLineStage&) = delete;

    TextLineView* operator->() const { return m_View; }
    TextLineView& operator*() const { return *m_View; }

    /// Appends that many of the workload's lines, and handles the events.
    void Fill(int count) const;
    /// Handles the events, and paints everything.
    void Show() const;

private:
    wxFrame*      m_Frame;
    TextLineView* m_View = nullptr;
};

/// How lines come and are shown.
enum Colouring
{
    kWithout,    // without colours
    kNotFound,   // a view that looks for colours, and there are none
    kNotShown,   // with colours, all bytes of which are shown
    kWithColours // with colours
};

using ToLine = const String& (*)(int);

/// Sets the view up for such lines, and says where they come from.
ToLine Prepare(wxTextLineCtrl& view, long long colouring);
