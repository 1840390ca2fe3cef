#pragma once

class wxWindow;

namespace internal
{
/// Lays out what the port forgot in a top-level window while it laid out: to be called when that
/// has ended, after size events in the window. GTK 3 drops a wish to be laid out that comes
/// meanwhile (a size event that shows a scrollbar is one) but leaves some parents marked as if it
/// was waiting, and these let no later wish pass: a control that has been moved stays where it was
/// drawn, until the window gets another size. Sends size events as every layout does; paints
/// nothing that has not changed.
void FinishLayout(wxWindow& top);
} // namespace internal
