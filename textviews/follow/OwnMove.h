#pragma once

#include <utility>

namespace textviews
{
/// While it lives the view moves by itself, as its lines or its size change, and not by the user's
/// hand: a view that does not follow its end does not begin to when it comes there.
class OwnMove
{
public:
    explicit OwnMove(bool& mayFollow)
        : m_MayFollow(mayFollow), m_Before(std::exchange(mayFollow, false))
    {
    }
    ~OwnMove() { m_MayFollow = m_Before; }
    OwnMove(const OwnMove&) = delete;
    OwnMove& operator=(const OwnMove&) = delete;

private:
    bool& m_MayFollow;
    bool  m_Before;
};
} // namespace textviews
