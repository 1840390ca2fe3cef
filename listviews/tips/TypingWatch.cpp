#include "listviews/tips/TypingWatch.h"

#include <wx/window.h>

namespace listviews
{
namespace
{
constexpr auto kTyping = std::chrono::seconds(1);
}

// The toolkit ends this when either of the two goes.
void TypingWatch::Follow(wxWindow& view)
{
    wxWindow* const top = wxGetTopLevelParent(&view);
    if (top != m_Followed)
    {
        m_Followed = top;
        top->Bind(wxEVT_CHAR_HOOK, &TypingWatch::OnKey, this);
    }
}

bool TypingWatch::IsTyping() const
{
    return std::chrono::steady_clock::now() - m_LastKey < kTyping;
}

void TypingWatch::OnKey(wxKeyEvent& event)
{
    event.Skip();
    m_LastKey = std::chrono::steady_clock::now();
}
} // namespace listviews
