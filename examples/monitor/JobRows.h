#pragma once

#include "monitor/JobColumns.h"

#include "jobwidgets/JobGrouping.h"

#include <cstdint>
#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

using jobwidgets::JobGrouping;

/// The rows of the list of jobs: groups of jobs if there are groups, the jobs, and the frames of
/// each if they are wanted, the latest job first. Every row has a number that stays its own.
/// Without a window.
class JobRows
{
public:
    using Row = int64_t; ///< 0 is none: above everything.

    /// A frame of a job; number 0 is the job itself.
    struct Frame
    {
        const FarmJob* job = nullptr; ///< Null: the row is a group, or has gone.
        int            number = 0;
    };

    struct Group
    {
        Row                         row = 0;
        String                      name;
        std::vector<const FarmJob*> jobs;
        std::vector<Row>            rows; ///< Of the jobs.
    };

    /// Takes the farm's jobs in the order of their coming. Until the next call a job that has gone
    /// must not be asked for by what it shows or is known by; how the rows stand may be.
    void Arrange(const std::vector<const FarmJob*>& jobs, JobGrouping grouping, bool showsFrames);

    JobGrouping Grouping() const { return m_Grouping; }
    bool        IsTree() const { return m_Grouping != JobGrouping::kNone || m_Frames; }
    const std::vector<Group>& Groups() const { return m_Groups; } ///< None when there is one level.
    const Group*              FindGroup(Row row) const;           ///< Null for other rows.
    Frame                     FrameAt(Row row) const;

    /// What the row of a job or a frame is known by among its neighbours, also the next time.
    String    KeyOf(Row row) const;
    long long ChildCount(Row row) const;
    Row       Child(Row row, long long index) const; ///< 0 when there is none.
    /// The rows from the outermost one to this one; empty for one that is not there.
    std::vector<Row> PathTo(Row row) const;

    /// What a cell shows, and what the column is sorted by where that is a number.
    String                Text(Row row, int column, Time now) const;
    std::optional<double> SortNumber(Row row, int column, Time now) const;
    int                   Progress(Row row) const; ///< Percent; of a group: on the average.

    static Row RowOf(const FarmJob& job, int frame = 0);

private:
    struct Place
    {
        const FarmJob* job = nullptr;
        Row            group = 0; ///< 0: none.
        int            frames = 0;
    };

    String       NameOfGroup(const FarmJob& job) const;
    void         SortGroups();
    const Place* FindPlace(Row row) const; ///< Of a job or its frame; null for other rows.

    JobGrouping                         m_Grouping = JobGrouping::kNone;
    bool                                m_Frames = false;
    std::vector<Row>                    m_Jobs; ///< The latest first.
    std::vector<Group>                  m_Groups;
    std::unordered_map<Row, size_t>     m_GroupAt;   ///< Index by row.
    std::unordered_map<uint64_t, Place> m_Places;    ///< By the job's number.
    std::map<String, Row>               m_GroupRows; ///< By name.
    Row                                 m_LastGroup = 0;
};
