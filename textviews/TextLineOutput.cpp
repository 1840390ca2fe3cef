#include "appearance/wxTolvanString.h"
#include "internal/clipboard/TextDataObject.h"
#include "textviews/escapes/ShownLines.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextSelection.h"
#include "textviews/saving/LineSinks.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/app.h>
#include <wx/clipbrd.h>

#include <algorithm>
#include <utility>

// What is selected, for the clipboard.

namespace
{
constexpr uint64_t kMostCopied = uint64_t{1} << 30; // bytes; lines may come from files of any size

void Place(String text)
{
    // Another part of the program may have it open: to open it again is an error, and the locker
    // would close it under that part.
    if (!wxTheClipboard->IsOpened() && wxTheClipboard->Open())
    {
        wxTheClipboard->SetData(new internal::TextDataObject([text = std::move(text)]() mutable
                                                             { return std::move(text); }));
        wxTheClipboard->Flush();
        wxTheClipboard->Close();
    }
}
} // namespace

String wxTextLineCtrl::SelectedText(bool plain) const
{
    if (const String part = GetSelectedPart(); !part.empty())
    {
        return plain ? String(m_Shown->PlainTextOf(part)) : part;
    }
    const int    first = std::max(m_Selection->First(), 0);
    const int    last = std::min(m_Selection->Last(), m_Lines->Count() - 1);
    String       text;
    const size_t bytes = m_Lines->RoughBytes(first, last) + static_cast<size_t>(last - first + 1);
    textviews::TextSink sink(plain ? m_Shown : nullptr, bytes,
                             [&text](String all) { text = std::move(all); });
    for (int line = first; line <= last; ++line)
    {
        sink.Take(m_Lines->LineNow(line), line < last && m_Lines->GoesOn(line));
    }
    sink.Finish();
    return text;
}

bool wxTextLineCtrl::IsTooMuchToCopy()
{
    const uint64_t bytes = m_Lines->RoughBytes(std::max(m_Selection->First(), 0),
                                               std::min(m_Selection->Last(), m_Lines->Count() - 1));
    if (bytes <= kMostCopied)
    {
        return false;
    }
    TellSaveProblem(wxGetTranslation(
        "This is too much for the clipboard, which has to hold it in memory. Save it to a "
        "file, or select fewer lines."));
    return true;
}

void wxTextLineCtrl::CopySelectionToClipboard()
{
    CALL_ENTRY("wxTextLineCtrl::CopySelectionToClipboard");
    if (!IsTooMuchToCopy())
    {
        Place(SelectedText(false));
    }
}

void wxTextLineCtrl::CopyPlainTextToClipboard()
{
    CALL_ENTRY("wxTextLineCtrl::CopyPlainTextToClipboard");
    if (!IsTooMuchToCopy())
    {
        Place(SelectedText(true));
    }
}

void wxTextLineCtrl::BeginCopying(bool plain)
{
    CALL_ENTRY("wxTextLineCtrl::BeginCopying");
    EndRun(m_Copying);
    const int first = std::max(m_Selection->First(), 0);
    const int last = std::min(m_Selection->Last(), m_Lines->Count() - 1);
    if (first >= last || !GetSelectedPart().empty())
    {
        plain ? CopyPlainTextToClipboard() : CopySelectionToClipboard();
        return;
    }
    if (IsTooMuchToCopy())
    {
        return;
    }
    const size_t bytes = m_Lines->RoughBytes(first, last) + static_cast<size_t>(last - first + 1);
    m_Copying = std::make_unique<textviews::LineRun>(
        *m_Lines, first, last + 1,
        std::make_unique<textviews::TextSink>(plain ? m_Shown : nullptr, bytes, Place));
    Begin(m_Copying);
}

void wxTextLineCtrl::StopCopying()
{
    CALL_ENTRY("wxTextLineCtrl::StopCopying");
    StopRun(m_Copying, wxGetTranslation("Copying was stopped"));
}
