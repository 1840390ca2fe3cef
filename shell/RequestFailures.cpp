#include "appearance/wxTolvanString.h"
#include "internal/windows/UpperFloors.h"
#include "shell/app/TopWindow.h"
#include "shell/wxTolvanApp.h"
#include "vesta/CallEntry.h"

#include <wx/thread.h>

#include <algorithm>
#include <vector>

// What the master reports of requests that failed, one box at a time: a master that has nothing but
// errors to report must not bury the screen.

namespace
{
const char* const kReport = "Master reports error:\n";
constexpr size_t  kMostWaiting = 100; // texts for the next box; further ones are only logged

bool                s_BoxIsUp = false;
std::vector<String> s_Waiting; // came while the box was up

void Wait(const String& text)
{
    if (s_Waiting.size() >= kMostWaiting)
    {
        LogInfo(kReport + text);
    }
    else if (std::find(s_Waiting.begin(), s_Waiting.end(), text) == s_Waiting.end())
    {
        s_Waiting.push_back(text);
    }
}

String TakeWaiting()
{
    String all;
    for (const String& text : s_Waiting)
    {
        all += (all.empty() ? "" : "\n") + text;
    }
    s_Waiting.clear();
    return all;
}

void ShowBox(const String& texts)
{
    internal::g_UpperFloors.tellUser(wxtToWx(kReport + texts), "RequestFailed");
}

void Show(const String& text)
{
    if (s_BoxIsUp)
    {
        Wait(text);
        return;
    }
    const struct Up
    {
        Up() { s_BoxIsUp = true; }
        ~Up() { s_BoxIsUp = false; }
    } up;
    ShowBox(text);
    for (String next = TakeWaiting(); !next.empty(); next = TakeWaiting())
    {
        if (shell::HasTopWindow())
        {
            ShowBox(next);
        }
        else
        {
            LogInfo(kReport + next); // the box has gone with the program's window
        }
    }
}
} // namespace

bool wxTolvanApp::RequestHasFailed(const String& text)
{
    CALL_ENTRY("wxTolvanApp::RequestHasFailed");
    if (wxIsMainThread())
    {
        Show(text);
    }
    else
    {
        CallAfter([text] { Show(text); });
    }
    return false;
}
