#include "listviews/refresh/RowMarks.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace listviews
{
namespace
{
constexpr int    kReach = 32;        // rows on either side of a place
constexpr size_t kFewPlaces = 10000; // around which is looked so
constexpr int    kFewRows = 64;      // of a step

// The marks of one key that wait for rows, in the order in which they take them. A selected row
// is one of its own; anchor, caret and the rows seen may be the same.
struct WaitingMarks
{
    std::vector<RowMark*> selected;
    std::vector<RowMark*> others;
    size_t                taken = 0;
    bool                  isOnlySeen = true;
};

// Where the rows were, what is seen first.
std::vector<int> PlacesOf(const RowMarks& marks)
{
    std::vector<int> places;
    for (const RowMark& mark : marks.seen)
    {
        places.push_back(mark.row);
    }
    places.push_back(marks.anchor.row);
    places.push_back(marks.caret.row);
    for (const RowMark& mark : marks.selected)
    {
        places.push_back(mark.row);
    }
    return places;
}
} // namespace

class MarkSearch::Waiting
{
public:
    Waiting(RowMarks& marks, int count) : m_Count(count)
    {
        for (RowMark& mark : marks.seen)
        {
            Add(mark).others.push_back(&mark);
        }
        for (RowMark& mark : marks.selected)
        {
            WaitingMarks& waiting = Add(mark);
            waiting.selected.push_back(&mark);
            waiting.isOnlySeen = false;
        }
        for (RowMark* const mark : {&marks.anchor, &marks.caret})
        {
            WaitingMarks& waiting = Add(*mark);
            waiting.others.push_back(mark);
            waiting.isOnlySeen = false;
        }
        m_Marks.erase(String());
    }

    void Take(const String& key, int row)
    {
        const auto found = m_Marks.find(key);
        if (found == m_Marks.end())
        {
            return;
        }
        WaitingMarks& waiting = found->second;
        for (RowMark* const mark : waiting.others)
        {
            mark->row = row;
        }
        waiting.others.clear();
        if (waiting.taken < waiting.selected.size())
        {
            waiting.selected[waiting.taken++]->row = row;
        }
        if (waiting.taken == waiting.selected.size())
        {
            m_Marks.erase(found);
        }
    }

    bool IsEmpty() const { return m_Marks.empty(); }
    /// The view stays where one of the rows seen is: that others have gone is no reason to ask all.
    void ForgetSeen()
    {
        for (auto waiting = m_Marks.begin(); waiting != m_Marks.end();)
        {
            waiting = waiting->second.isOnlySeen ? m_Marks.erase(waiting) : std::next(waiting);
        }
    }

private:
    // Those that are known by their index wait for nothing, under no key.
    WaitingMarks& Add(RowMark& mark)
    {
        const bool isKnown = mark.key.empty() && mark.row < m_Count;
        mark.row = isKnown ? mark.row : -1;
        return m_Marks[mark.key];
    }

    int                                           m_Count;
    std::unordered_map<std::string, WaitingMarks> m_Marks;
};

MarkSearch::MarkSearch(const RowMarks& marks, int count, std::vector<int> first)
    : m_Found(marks),
      m_Waiting(std::make_unique<Waiting>(m_Found, count)),
      m_IsKnown(static_cast<size_t>(count)),
      m_First(std::move(first)),
      m_Places(PlacesOf(marks)),
      m_Reach(m_Places.size() > kFewPlaces ? 0 : kReach)
{
}

MarkSearch::~MarkSearch() = default;

bool MarkSearch::Step(const KeyOf& keyOf)
{
    for (int asked = 0; asked < kFewRows && !m_Waiting->IsEmpty(); ++asked)
    {
        const int row = NextRow();
        if (row < 0)
        {
            return false;
        }
        m_IsKnown[static_cast<size_t>(row)] = true;
        m_Waiting->Take(keyOf(row), row);
    }
    return !m_Waiting->IsEmpty();
}

// That is to be asked; -1 when all have been.
int MarkSearch::NextRow()
{
    const auto isNew = [this](int row)
    {
        const auto index = static_cast<size_t>(row);
        return row >= 0 && index < m_IsKnown.size() && !m_IsKnown[index];
    };
    for (; m_Distance <= m_Reach; ++m_Distance, m_Next = 0)
    {
        while (m_Distance == 0 && !m_First.empty())
        {
            const int row = m_First.back();
            m_First.pop_back();
            if (isNew(row))
            {
                return row;
            }
        }
        while (m_Next < 2 * m_Places.size())
        {
            const int place = m_Places[m_Next / 2];
            const int row = m_Next % 2 == 0 ? place - m_Distance : place + m_Distance;
            ++m_Next;
            if (isNew(row))
            {
                return row;
            }
        }
    }
    const auto isFound = [](const RowMark& mark) { return mark.row >= 0; };
    if (std::exchange(m_IsNear, false) &&
        std::any_of(m_Found.seen.begin(), m_Found.seen.end(), isFound))
    {
        m_Waiting->ForgetSeen();
    }
    const auto count = static_cast<int>(m_IsKnown.size());
    while (m_Row < count && !isNew(m_Row))
    {
        ++m_Row;
    }
    return m_Row < count && !m_Waiting->IsEmpty() ? m_Row : -1;
}

long long ScrollAfter(const RowMarks& before, const RowMarks& found, int rowHeight)
{
    for (size_t i = 0; i < found.seen.size(); ++i)
    {
        if (found.seen[i].row >= 0)
        {
            const long long moved = static_cast<long long>(found.seen[i].row) - before.seen[i].row;
            return before.scroll + moved * rowHeight;
        }
    }
    return before.scroll;
}
} // namespace listviews
