#include "benchmarks/ListWorkload.h"

#include <array>
#include <random>
#include <vector>

namespace
{
using Cells = std::array<String, kCellColumns>;

constexpr unsigned kSeed = 20240611;
constexpr int      kLeastPath = 20;   // characters
constexpr int      kLongestPath = 80; // characters
constexpr size_t   kNameColumn = 0;
constexpr size_t   kUserColumn = 2;

template <size_t Count> const char* Any(std::mt19937& random, const char* const (&texts)[Count])
{
    return texts[random() % Count];
}

int Number(std::mt19937& random, int least, int most)
{
    return std::uniform_int_distribution<int>(least, most)(random);
}

String Path(std::mt19937& random)
{
    static const char* const kFolders[] = {"/projects", "/harbour", "/sequence_040", "/shots",
                                           "/render",   "/v0127",   "/beauty_pass",  "/cache"};
    const auto               size = static_cast<size_t>(Number(random, kLeastPath, kLongestPath));
    String                   path;
    while (path.size() < size)
    {
        path += Any(random, kFolders);
    }
    path.resize(size);
    return path;
}

String Name(std::mt19937& random)
{
    static const char* const kStages[] = {"lighting", "comp", "simulation", "lookdev"};
    return SFormat("shot_%04d_%s_v%03d", Number(random, 1, 9999), Any(random, kStages),
                   Number(random, 1, 200));
}

String Duration(std::mt19937& random)
{
    return SFormat("%d:%02d:%02d", Number(random, 0, 200), Number(random, 0, 59),
                   Number(random, 0, 59));
}

Cells MakeRow(std::mt19937& random)
{
    static const char* const kUsers[] = {"Amelia Fischer", "Jonas Okafor", "Mei Tanaka"};
    static const char* const kStates[] = {"Rendering", "Finished", "Failed", "Waiting"};
    return {Name(random),
            Path(random),
            Any(random, kUsers),
            Any(random, kStates),
            SFormat("%d %%", Number(random, 0, 100)),
            SFormat("%d / %d", Number(random, 0, 500), Number(random, 500, 2000)),
            Duration(random),
            Path(random),
            SFormat("render-node-%03d.hall-%02d", Number(random, 1, 400), Number(random, 1, 12)),
            SFormat("%d kB", Number(random, 1, 99999999))};
}

Cells MakeWorldRow(std::mt19937& random)
{
    static const char* const kPlaces[] = {"São Luís", "Łódź",   "Đà Nẵng", "東京湾の夜景",
                                          "北京夜景", "大阪駅", "Иркутск", "Ærøskøbing"};
    static const char* const kMarks[] = {"🎬", "🔥", "🚀", "✅", "🌙", "👩‍🚀", "é", "ß"};
    static const char* const kUsers[] = {"Zoë Müller", "Jürgen Núñez", "田中 美咲", "王小明",
                                         "李娜",       "Ольга Ильина", "Mei 🐼"};
    Cells                    row = MakeRow(random);
    row[kNameColumn] = String(Any(random, kPlaces)) + " " + Any(random, kMarks) +
                       SFormat(" %03d", Number(random, 1, 999));
    row[kUserColumn] = Any(random, kUsers);
    return row;
}

std::vector<Cells> MakeRows(Cells (*makeRow)(std::mt19937&))
{
    std::mt19937       random(kSeed);
    std::vector<Cells> rows;
    rows.reserve(kCellRows);
    for (int i = 0; i < kCellRows; ++i)
    {
        rows.push_back(makeRow(random));
    }
    return rows;
}

const String& CellOf(const std::vector<Cells>& rows, int row, int column)
{
    return rows[static_cast<size_t>(row % kCellRows)][static_cast<size_t>(column)];
}
} // namespace

const String& WorkloadCell(int row, int column)
{
    static const std::vector<Cells> s_Rows = MakeRows(&MakeRow);
    return CellOf(s_Rows, row, column);
}

const String& WorldCell(int row, int column)
{
    static const std::vector<Cells> s_Rows = MakeRows(&MakeWorldRow);
    return CellOf(s_Rows, row, column);
}
