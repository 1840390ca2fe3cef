#pragma once

#include "textviews/wxTextLineCtrl.h"

/// A view of lines that come without end: it follows them and keeps the latest million, so that the
/// monitor can run for months.
class LiveLog : public wxTextLineCtrl
{
public:
    static constexpr int k_MostLines = 1000000;

    explicit LiveLog(wxWindow* parent) : wxTextLineCtrl(parent) { SetFollowEnd(true); }

    void Add(const String& line)
    {
        Append(line, false);
        if (GetLineCount() > k_MostLines)
        {
            Erase(0);
        }
    }
};
