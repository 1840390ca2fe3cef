#pragma once

#include "vesta/String.h"
#include "vesta/UID.h"

#include <vector>

namespace jobwidgets
{
/// The jobs that were picked last, the latest first. Without a window.
class RecentJobs
{
public:
    static constexpr size_t k_Most = 10;

    RecentJobs() = default;
    explicit RecentJobs(const String& text); ///< What is no identifier is left out.

    /// The first one comes to the top, the others behind it.
    void                    Add(const std::vector<UID>& picked);
    const std::vector<UID>& InOrder() const { return m_Jobs; }
    String                  ToText() const;

private:
    void Append(const UID& job);

    std::vector<UID> m_Jobs;
};
} // namespace jobwidgets
