#pragma once

#include "vesta/String.h"

#include <functional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace listviews
{
/// Items that were selected when they went from sight, and are to be selected again when they come
/// back. They are known by their numbers, or by their keys once the host's items are others.
class HiddenSelection
{
public:
    /// `key`: what the item is known by whatever its number; empty: nothing.
    void Add(int item, String key);
    void AddKey(const String& key); ///< An item whose number is not known.
    /// Whether the item is one of them, which it no longer is then. `keyOf`: asks for its key.
    bool Take(int item, const std::function<String()>& keyOf);
    void ItemsChanged();
    void Clear();
    bool IsEmpty() const { return m_Count == 0; }

private:
    std::vector<bool>                   m_Items; ///< By number.
    std::vector<std::pair<int, String>> m_Named; ///< Those of them that have a key.
    std::unordered_set<std::string>     m_Keys;  ///< Those whose numbers are not known any more.
    size_t                              m_Count = 0;
};
} // namespace listviews
