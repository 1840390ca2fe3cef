#pragma once

#include "textviews/wxTextFinder.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextSource.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

/// A text on a disk that takes its time.
class SlowText final : public wxTextSource
{
public:
    explicit SlowText(std::string text) : m_Text(std::move(text)) {}

    size_t Read(uint64_t offset, char* buffer, size_t count, int& problem) const override
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        problem = 0;
        return m_Text.copy(buffer, count, offset);
    }

private:
    std::string m_Text;
};

/// How long a window took to answer, again and again; in milliseconds. A busy machine adds to some
/// of the times, waiting for the disk to most of them.
class Answers
{
public:
    void Add(long time) { m_Times.push_back(time); }
    /// Most came in a tenth of a second.
    bool AreQuick() const
    {
        const auto slow =
            std::count_if(m_Times.begin(), m_Times.end(), [](long time) { return time >= 100; });
        return slow * 2 < static_cast<long>(m_Times.size());
    }

private:
    std::vector<long> m_Times;
};

/// Adds "line 0000 xxx" and so on, which lie on such a disk: some eight hundred in a block.
inline void AppendSlowly(wxTextLineCtrl& view, int lines)
{
    std::string text;
    for (int i = 0; i < lines; ++i)
    {
        text += SFormat("line %04d %s\n", i, std::string(30, 'x').c_str());
    }
    std::vector<wxTextStretch> stretches;
    wxFindTextLines(text, 0, stretches);
    view.AppendStored(std::make_shared<SlowText>(text), stretches);
}
