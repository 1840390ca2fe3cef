#include "internal/text/Digits.h"

#include <cctype>

namespace internal
{
wxString Grouped(long long number)
{
    std::string text = std::to_string(number);
    for (size_t at = text.size(); at > 3 && std::isdigit(text[at - 4]);)
    {
        at -= 3;
        text.insert(at, 1, ',');
    }
    return text;
}
} // namespace internal
