#pragma once

#include "vesta/String.h"

#include <set>

namespace jobwidgets
{
/// Which groups the user has closed, by their keys; any other is open when it comes. Without a
/// window.
class ClosedGroups
{
public:
    static constexpr size_t k_Most = 300; ///< That are kept as a text.

    explicit ClosedGroups(const String& text) { Read(text); }

    bool   Has(const String& key) const { return m_Keys.count(key) > 0; }
    void   Put(const String& key, bool isClosed);
    String ToText() const;

private:
    void Read(const String& text);

    std::set<String> m_Keys;
};
} // namespace jobwidgets
