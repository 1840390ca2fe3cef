#include "monitor/JobRows.h"

#include "monitor/FramePictures.h"

#include <algorithm>
#include <numeric>
#include <strings.h>
#include <utility>

namespace
{
constexpr int      kFrameBits = 32; // of a row's number; above them stands the job's
constexpr int64_t  kFrameMask = (int64_t{1} << kFrameBits) - 1;
constexpr uint64_t kMostJobs = (uint64_t{1} << 31) - 1;

String FrameText(const JobRows::Frame& frame, int column)
{
    const JobFrames::Frame* const known = frame.job->frames.Find(frame.number);
    switch (column)
    {
    case column_Name:
        return SFormat("Frame %d", frame.number) +
               (known && !known->file.empty() ? "   " + Path(known->file).Leaf() : String());
    case column_State:
        return FrameState(*frame.job, frame.number);
    case column_Elapsed:
        return known ? known->took : String();
    default:
        return {};
    }
}

int MeanProgress(const JobRows::Group& group)
{
    const auto sum =
        std::accumulate(group.jobs.begin(), group.jobs.end(), 0LL,
                        [](long long all, const FarmJob* job) { return all + job->progress; });
    return group.jobs.empty() ? 0
                              : static_cast<int>(sum / static_cast<long long>(group.jobs.size()));
}

String GroupText(const JobRows::Group& group, int column)
{
    switch (column)
    {
    case column_Name:
        return OneLine(group.name.empty() ? String("(none)") : group.name, 100);
    case column_Progress:
        return SFormat("%d %%", MeanProgress(group));
    default:
        return {};
    }
}
} // namespace

void JobRows::Arrange(const std::vector<const FarmJob*>& jobs, JobGrouping grouping,
                      bool showsFrames)
{
    std::map<String, Row> before = std::exchange(m_GroupRows, {});
    if (grouping != m_Grouping)
    {
        before.clear();
    }
    m_Grouping = grouping;
    m_Frames = showsFrames;
    m_Jobs.clear();
    m_Places.clear();
    m_Groups.clear();
    std::map<String, size_t> places;
    for (auto job = jobs.rbegin(); job != jobs.rend(); ++job)
    {
        const Row row = RowOf(**job);
        m_Jobs.push_back(row);
        Place& place = m_Places[(*job)->number];
        place.job = *job;
        place.frames = showsFrames ? std::max((*job)->frameCount, 0) : 0;
        if (grouping == JobGrouping::kNone)
        {
            continue;
        }
        const String name = NameOfGroup(**job);
        const auto [found, isNew] = places.emplace(name, m_Groups.size());
        if (isNew)
        {
            const auto known = before.find(name);
            m_Groups.push_back(
                {known == before.end() ? --m_LastGroup : known->second, name, {}, {}});
            m_GroupRows.emplace(name, m_Groups.back().row);
        }
        Group& group = m_Groups[found->second];
        group.jobs.push_back(*job);
        group.rows.push_back(row);
        place.group = group.row;
    }
    SortGroups();
}

String JobRows::NameOfGroup(const FarmJob& job) const
{
    return m_Grouping == JobGrouping::kUser      ? job.user
           : m_Grouping == JobGrouping::kProduct ? job.product
                                                 : job.state;
}

// States as a user must look at them, all else by name.
void JobRows::SortGroups()
{
    const bool isByState = m_Grouping == JobGrouping::kState;
    std::sort(m_Groups.begin(), m_Groups.end(),
              [isByState](const Group& a, const Group& b)
              {
                  const int order = isByState ? StateRank(a.name) - StateRank(b.name)
                                              : strcasecmp(a.name.c_str(), b.name.c_str());
                  return order == 0 ? a.name < b.name : order < 0;
              });
    m_GroupAt.clear();
    for (size_t i = 0; i < m_Groups.size(); ++i)
    {
        m_GroupAt.emplace(m_Groups[i].row, i);
    }
}

const JobRows::Group* JobRows::FindGroup(Row row) const
{
    const auto found = m_GroupAt.find(row);
    return found == m_GroupAt.end() ? nullptr : &m_Groups[found->second];
}

const JobRows::Place* JobRows::FindPlace(Row row) const
{
    const auto found =
        row > 0 ? m_Places.find(static_cast<uint64_t>(row >> kFrameBits)) : m_Places.end();
    return found == m_Places.end() ? nullptr : &found->second;
}

JobRows::Frame JobRows::FrameAt(Row row) const
{
    const Place* const place = FindPlace(row);
    return place ? Frame{place->job, static_cast<int>(row & kFrameMask)} : Frame();
}

JobRows::Row JobRows::RowOf(const FarmJob& job, int frame)
{
    return static_cast<Row>(job.number & kMostJobs) << kFrameBits | frame;
}

String JobRows::KeyOf(Row row) const
{
    const Frame frame = FrameAt(row);
    return !frame.job ? String() : frame.number > 0 ? String::FromInt(frame.number) : frame.job->id;
}

long long JobRows::ChildCount(Row row) const
{
    if (row == 0)
    {
        return static_cast<long long>(m_Grouping == JobGrouping::kNone ? m_Jobs.size()
                                                                       : m_Groups.size());
    }
    if (const Group* const group = FindGroup(row))
    {
        return static_cast<long long>(group->jobs.size());
    }
    const Place* const place = FindPlace(row);
    return place && (row & kFrameMask) == 0 ? place->frames : 0;
}

JobRows::Row JobRows::Child(Row row, long long index) const
{
    if (index < 0 || index >= ChildCount(row))
    {
        return 0;
    }
    const auto place = static_cast<size_t>(index);
    if (row == 0)
    {
        return m_Grouping == JobGrouping::kNone ? m_Jobs[place] : m_Groups[place].row;
    }
    const Group* const group = FindGroup(row);
    return group ? group->rows[place] : row + index + 1;
}

std::vector<JobRows::Row> JobRows::PathTo(Row row) const
{
    std::vector<Row> path;
    if (const Place* const place = FindPlace(row))
    {
        const Row job = row & ~static_cast<Row>(kFrameMask);
        path = place->group != 0 ? std::vector<Row>{place->group, job} : std::vector<Row>{job};
        if (job != row)
        {
            path.push_back(row);
        }
    }
    return path;
}

String JobRows::Text(Row row, int column, Time now) const
{
    if (const Group* const group = FindGroup(row))
    {
        return GroupText(*group, column);
    }
    const Frame frame = FrameAt(row);
    return !frame.job         ? String()
           : frame.number > 0 ? FrameText(frame, column)
                              : InfoOf(column).text(*frame.job, now);
}

std::optional<double> JobRows::SortNumber(Row row, int column, Time now) const
{
    if (const Group* const group = FindGroup(row))
    {
        return column == column_Progress ? std::optional<double>(MeanProgress(*group))
                                         : std::nullopt;
    }
    const Frame frame = FrameAt(row);
    if (!frame.job)
    {
        return std::nullopt;
    }
    if (frame.number > 0)
    {
        return column == column_Name ? std::optional<double>(frame.number) : std::nullopt;
    }
    const auto number = InfoOf(column).number;
    return number ? std::optional<double>(number(*frame.job, now)) : std::nullopt;
}

int JobRows::Progress(Row row) const
{
    if (const Group* const group = FindGroup(row))
    {
        return MeanProgress(*group);
    }
    const Frame frame = FrameAt(row);
    return frame.job && frame.number == 0 ? frame.job->progress : 0;
}
