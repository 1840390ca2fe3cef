#pragma once

class wxDBListCtrl;

namespace listviews
{
/// Whether the rows of a list may become others now: not under a hand that is about to do something
/// to one of them, nor while the list's window asks something about them, by a menu or a dialog,
/// nor while they are being copied or selected.
bool MayReplaceRows(wxDBListCtrl& list);
} // namespace listviews
