#include "tests/support/LogCapture.h"

LogCapture::LogCapture()
{
    Log::s_GlobalLog->SetLevels(log_Debug, log_Warning);
    Log::s_GlobalLog->SetSink(&LogCapture::Keep, this);
}

LogCapture::~LogCapture()
{
    Log::s_GlobalLog->SetSink(nullptr, nullptr);
}

void LogCapture::Keep(void* self, LogLevel level, const String& text)
{
    auto* const                       capture = static_cast<LogCapture*>(self);
    const std::lock_guard<std::mutex> lock(capture->m_Mutex);
    capture->m_Lines.emplace_back(level, text);
}

int LogCapture::Count(const String& text, int level) const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    int                               count = 0;
    for (const auto& line : m_Lines)
    {
        const bool fits = level < 0 || line.first == level;
        count += fits && line.second.find(text) != String::npos;
    }
    return count;
}

String LogCapture::All() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    String                            all;
    for (const auto& line : m_Lines)
    {
        all += SFormat("%d ", line.first) + line.second + "\n";
    }
    return all;
}
