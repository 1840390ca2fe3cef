#pragma once

#include "dialogs/colours/SchemeColours.h"

#include <vector>

namespace dialogs
{
/// The schemes that an edit has come by, for undo and redo.
class ColourHistory
{
public:
    static constexpr size_t k_Most = 200; ///< Steps; earlier ones are forgotten.
    static constexpr int    k_OwnStep = -1;

    explicit ColourHistory(const SchemeColours& first) : m_States{first} {}

    const SchemeColours& Now() const { return m_States[m_At]; }
    bool                 CanUndo() const { return m_At > 0; }
    bool                 CanRedo() const { return m_At + 1 < m_States.size(); }

    /// A step to these colours; nothing when they are the present ones. One deed may come in many
    /// parts, such as the letters of a value: those that follow one another with the same `deed`
    /// are one step.
    void Add(const SchemeColours& colours, int deed = k_OwnStep)
    {
        if (colours == Now())
        {
            return;
        }
        m_States.resize(m_At + 1);
        if (deed != k_OwnStep && deed == m_Deed && CanUndo())
        {
            m_States[m_At] = colours;
            return;
        }
        m_Deed = deed;
        m_States.push_back(colours);
        if (m_States.size() > k_Most + 1)
        {
            m_States.erase(m_States.begin());
        }
        m_At = m_States.size() - 1;
    }
    void EndDeed() { m_Deed = k_OwnStep; } ///< What follows is a step of its own.
    void Undo() { Move(CanUndo() ? m_At - 1 : m_At); }
    void Redo() { Move(CanRedo() ? m_At + 1 : m_At); }

private:
    void Move(size_t to)
    {
        m_At = to;
        EndDeed();
    }

    std::vector<SchemeColours> m_States;
    size_t                     m_At = 0;
    int                        m_Deed = k_OwnStep; ///< Of the last step.
};
} // namespace dialogs
