#pragma once

#include "textviews/wxTextSource.h"

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <vector>

namespace textviews
{
constexpr const char* k_TabReplacement = "    ";
constexpr size_t      k_TabGrowth = 3; ///< Bytes that a tab grows by.

/// Lines that lie in a source.
struct StoredPlace
{
    std::shared_ptr<const wxTextSource> source;
    uint64_t                            offset = 0;
    uint32_t                            size = 0; ///< Bytes in the source.
    int                                 lines = 0;
};

/// The same lines as a view has them.
struct StoredText
{
    std::vector<char>     bytes;  ///< Without line feeds, tabs as spaces.
    std::vector<uint32_t> starts; ///< One a line: there are as many as the place says.
};

/// Reads the lines of the place. Those that are not there (any more) or cannot be read say so.
StoredText ReadStored(const StoredPlace& place);

/// The lines that were read last, at most some megabytes unless they are very long.
class StoredTexts
{
public:
    /// `late` is called, on a thread of this object's own, when something has been read that
    /// `Soon` could not wait for.
    explicit StoredTexts(std::function<void()> late);
    ~StoredTexts(); ///< Does not wait for a disk.
    StoredTexts(StoredTexts&&) = default;

    /// Either is valid until the lines of eight other places have been asked for.
    /// @{
    const StoredText& Now(const StoredPlace& place);
    /// Null when reading takes longer than somebody who looks at the window would wait: it goes on
    /// behind the scenes.
    const StoredText* Soon(const StoredPlace& place);
    /// @}
    /// Has it read behind the scenes when nothing else is: somebody will soon want it.
    void Ahead(const StoredPlace& place);
    void Forget();

private:
    class _Work;
    struct Entry
    {
        StoredPlace place;
        StoredText  text;
    };

    _Work&            Work();
    const StoredText* Find(const StoredPlace& place);
    const StoredText& Keep(const StoredPlace& place, StoredText text);

    std::function<void()>  m_Late;
    std::list<Entry>       m_Entries; ///< The one used last first.
    size_t                 m_Bytes = 0;
    std::shared_ptr<_Work> m_Work; ///< The thread's too; none before it is needed.
};
} // namespace textviews
