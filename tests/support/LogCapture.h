#pragma once

#include "vesta/Log.h"

#include <mutex>
#include <utility>
#include <vector>

/// Keeps what goes to the global log while it lives, debug lines too.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// Lines that hold the text, of that level or any.
    int    Count(const String& text, int level = -1) const;
    bool   Has(const String& text, int level = -1) const { return Count(text, level) > 0; }
    String All() const; ///< For messages of failed tests.

private:
    static void Keep(void* self, LogLevel level, const String& text);

    mutable std::mutex                       m_Mutex;
    std::vector<std::pair<LogLevel, String>> m_Lines;
};
