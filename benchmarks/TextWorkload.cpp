#include "benchmarks/TextWorkload.h"

#include <iterator>
#include <random>

namespace
{
constexpr int      kLeastLine = 40;    // characters
constexpr int      kLongestLine = 160; // characters
constexpr int      kLines = 4001;      // a prime, so that no pattern repeats with the repaints
constexpr unsigned kSeed = 20240607;
constexpr unsigned kOrderSeed = 7;

String MakeLine(std::mt19937& random)
{
    static const char* const kWords[] = {"frame",   "rendered", "tile", "sample", "texture",
                                         "warning", "loading",  "done", "shots",  "geometry"};
    const auto               size =
        static_cast<size_t>(std::uniform_int_distribution<int>(kLeastLine, kLongestLine)(random));
    String line = SFormat("%08x ", static_cast<unsigned>(random()));
    while (line.size() < size)
    {
        line += kWords[random() % std::size(kWords)];
        line += ' ';
    }
    line.resize(size);
    return line;
}

String Coloured(const String& line)
{
    const String warning = "warning";
    const size_t number = line.find(' ');
    String       coloured = "\x1b[32m" + line.substr(0, number) + "\x1b[0m";
    size_t       done = number;
    for (size_t at = line.find(warning); at != String::npos; at = line.find(warning, done))
    {
        coloured += line.substr(done, at - done) + "\x1b[1;33m" + warning + "\x1b[0m";
        done = at + warning.size();
    }
    return coloured + line.substr(done);
}
} // namespace

const std::vector<String>& WorkloadLines()
{
    static const std::vector<String> s_Lines = []
    {
        std::mt19937        random(kSeed);
        std::vector<String> lines;
        lines.reserve(kLines);
        for (int i = 0; i < kLines; ++i)
        {
            lines.push_back(MakeLine(random));
        }
        return lines;
    }();
    return s_Lines;
}

const String& WorkloadLine(int number)
{
    return WorkloadLines()[static_cast<size_t>(number % kLines)];
}

const String& ColouredLine(int number)
{
    static const std::vector<String> s_Lines = []
    {
        std::vector<String> lines;
        lines.reserve(kLines);
        for (const String& line : WorkloadLines())
        {
            lines.push_back(Coloured(line));
        }
        return lines;
    }();
    return s_Lines[static_cast<size_t>(number % kLines)];
}

const std::vector<String>& UnsortedLines()
{
    static const std::vector<String> s_Lines = []
    {
        std::mt19937        random(kOrderSeed);
        std::vector<String> lines;
        lines.reserve(kSortedLines);
        for (int i = 0; i < kSortedLines; ++i)
        {
            lines.push_back(SFormat("%08x ", static_cast<unsigned>(random())) + WorkloadLine(i));
        }
        return lines;
    }();
    return s_Lines;
}
