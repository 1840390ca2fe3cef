#include "listviews/refresh/RowMarks.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace listviews
{
namespace
{
constexpr int    kReach = 32;        // rows on either side of a place
constexpr size_t kFewPlaces = 10000; // around which is looked so
constexpr int    kFewRows = 64;      // between two questions whether it is over

// The marks of one key that wait for rows, in the order in which they take them. A selected row
// is one of its own; anchor, caret and the rows seen may be the same.
struct Waiting
{
    std::vector<RowMark*> selected;
    std::vector<RowMark*> others;
    size_t                taken = 0;
    bool                  isOnlySeen = true;
};
using WaitingByKey = std::unordered_map<std::string, Waiting>;

class Finder
{
public:
    Finder(RowMarks& marks, int count) : m_Count(count)
    {
        for (RowMark& mark : marks.seen)
        {
            Add(mark).others.push_back(&mark);
        }
        for (RowMark& mark : marks.selected)
        {
            Waiting& waiting = Add(mark);
            waiting.selected.push_back(&mark);
            waiting.isOnlySeen = false;
        }
        for (RowMark* const mark : {&marks.anchor, &marks.caret})
        {
            Waiting& waiting = Add(*mark);
            waiting.others.push_back(mark);
            waiting.isOnlySeen = false;
        }
        m_Waiting.erase(String());
    }

    void Take(const String& key, int row)
    {
        const auto found = m_Waiting.find(key);
        if (found == m_Waiting.end())
        {
            return;
        }
        Waiting& waiting = found->second;
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
            m_Waiting.erase(found);
        }
    }

    bool IsDone() const { return m_Waiting.empty(); }
    /// The view stays where one of the rows seen is: that others have gone is no reason to ask all.
    void ForgetSeen()
    {
        for (auto waiting = m_Waiting.begin(); waiting != m_Waiting.end();)
        {
            waiting = waiting->second.isOnlySeen ? m_Waiting.erase(waiting) : std::next(waiting);
        }
    }

private:
    // Those that are known by their index wait for nothing, under no key.
    Waiting& Add(RowMark& mark)
    {
        const bool isKnown = mark.key.empty() && mark.row < m_Count;
        mark.row = isKnown ? mark.row : -1;
        return m_Waiting[mark.key];
    }

    int          m_Count;
    WaitingByKey m_Waiting;
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

bool FindAgain(RowMarks& marks, int count, const std::function<String(int row)>& keyOf,
               const std::function<bool()>& isOver)
{
    const std::vector<int> places = PlacesOf(marks);
    const int              reach = places.size() > kFewPlaces ? 0 : kReach;
    Finder                 finder(marks, count);
    std::vector<bool>      isKnown(static_cast<size_t>(count));
    int                    asked = 0;
    const auto             goOn = [&](int row)
    {
        if (row >= 0 && row < count && !isKnown[static_cast<size_t>(row)])
        {
            isKnown[static_cast<size_t>(row)] = true;
            finder.Take(keyOf(row), row);
            return ++asked % kFewRows != 0 || !isOver();
        }
        return true;
    };
    for (int step = 0; step <= reach && !finder.IsDone(); ++step)
    {
        const auto askBeside = [&](int place) { return goOn(place - step) && goOn(place + step); };
        if (!std::all_of(places.begin(), places.end(), askBeside))
        {
            return false;
        }
    }
    if (std::any_of(marks.seen.begin(), marks.seen.end(),
                    [](const RowMark& mark) { return mark.row >= 0; }))
    {
        finder.ForgetSeen();
    }
    for (int row = 0; row < count && !finder.IsDone(); ++row)
    {
        if (!goOn(row))
        {
            return false;
        }
    }
    return true;
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
