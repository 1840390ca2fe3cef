#include "tests/support/WaitFor.h"
#include "textviews/lines/LineStore.h"
#include "textviews/wxTextFinder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <random>
#include <string>

namespace
{
using Lines = std::vector<std::string>;

/// A text in memory that may lose its end, have a bad place, or lie on a disk that stands still.
class Source final : public wxTextSource
{
public:
    explicit Source(std::string text) : m_Text(std::move(text)) {}

    size_t Read(uint64_t offset, char* buffer, size_t count, int& problem) const override
    {
        std::unique_lock<std::mutex> lock(m_Mutex);
        m_Condition.wait(lock, [this] { return !m_IsStill; });
        ++m_Reads;
        const size_t end = std::min({m_Text.size(), m_BadFrom, offset + count});
        problem = end == m_BadFrom ? EIO : 0;
        return end <= offset ? 0 : m_Text.copy(buffer, end - offset, offset);
    }

    void StandStill(bool still)
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_IsStill = still;
        m_Condition.notify_all();
    }

    std::string              m_Text;
    size_t                   m_BadFrom = std::string::npos;
    mutable std::atomic<int> m_Reads{0};

private:
    mutable std::mutex              m_Mutex;
    mutable std::condition_variable m_Condition;
    bool                            m_IsStill = false;
};

/// Adds all lines of the text, found in pieces of that size.
std::shared_ptr<Source> Store(textviews::LineStore& store, const std::string& text,
                              size_t piece = std::string::npos)
{
    const auto source = std::make_shared<Source>(text);
    for (size_t at = 0; at < text.size();)
    {
        std::vector<wxTextStretch> found;
        const auto                 bytes = std::string_view(text).substr(at, piece);
        const size_t               used = wxFindTextLines(bytes, at, found);
        if (used == 0)
        {
            wxAddTextLine(bytes, at, found);
        }
        for (const wxTextStretch& stretch : found)
        {
            store.AppendStored(source, stretch);
        }
        at += used == 0 ? bytes.size() : used;
    }
    return source;
}

// Bytes of which tabs and characters that are wide are more frequent than elsewhere.
std::string RandomLine(std::mt19937& random)
{
    const auto  kind = random() % 100;
    std::string line(kind < 10 ? 0 : kind < 99 ? random() % 200 : random() % 80000, '\0');
    std::generate(line.begin(), line.end(),
                  [&] { return static_cast<char>(random() % 9 == 0 ? '\t' : random()); });
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line;
}

std::string WithSpaces(const std::string& line)
{
    std::string spaced;
    for (const char c : line)
    {
        spaced += c == '\t' ? std::string(4, ' ') : std::string(1, c);
    }
    return spaced;
}

void ExpectSame(const textviews::LineStore& store, const Lines& lines)
{
    ASSERT_EQ(store.Count(), static_cast<int>(lines.size()));
    uint64_t bytes = 0;
    for (int i = 0; i < store.Count();)
    {
        const textviews::LineStore::Block block = store.BlockOf(i);
        ASSERT_EQ(block.firstLine, i);
        ASSERT_TRUE(block.lineCount == 1 || block.bytes.size() <= 64 * 1024) << "for the search";
        for (int n = 0; n < block.lineCount; ++n, ++i)
        {
            ASSERT_EQ(block.Line(n), lines[static_cast<size_t>(i)]) << "line " << i;
            bytes += block.Line(n).size();
        }
    }
    EXPECT_EQ(store.Bytes(), bytes);
    for (int i = 0; i < store.Count(); i += 97)
    {
        ASSERT_EQ(store.Line(i), lines[static_cast<size_t>(i)]) << "line " << i;
        ASSERT_EQ(store.LineNow(i), lines[static_cast<size_t>(i)]) << "line " << i;
    }
}
} // namespace

// Whatever is done to lines of which some lie in sources, it gives what a plain vector gives.
TEST(StoredLines, AgreeWithAVector)
{
    for (unsigned seed = 1; seed <= 5; ++seed)
    {
        std::mt19937         random(seed);
        textviews::LineStore store;
        Lines                lines;
        for (int step = 0; step < 500; ++step)
        {
            const auto at = static_cast<int>(random() % (lines.size() + 1));
            const auto what = random() % 100;
            if (what < 10 + seed * 10 && !lines.empty())
            {
                const int index = random() % 2 == 0 ? 0 : std::min(at, store.Count() - 1);
                store.Erase(index);
                lines.erase(lines.begin() + index);
            }
            else if (what < 75)
            {
                std::string text;
                for (auto left = random() % 40; left > 0; --left)
                {
                    const std::string line = RandomLine(random);
                    text += line + "\n";
                    lines.push_back(WithSpaces(line));
                }
                Store(store, text);
            }
            else
            {
                lines.insert(lines.begin() + at, WithSpaces(RandomLine(random)));
                store.Insert(at, lines[static_cast<size_t>(at)]);
            }
        }
        ExpectSame(store, lines);
    }
}

TEST(StoredLines, AreFoundAlikeInPiecesOfAnySize)
{
    std::mt19937 random(3);
    std::string  text;
    Lines        lines;
    for (int i = 0; i < 3000; ++i)
    {
        lines.push_back("line" + std::string(random() % 90, 'x') + std::to_string(i));
        text += lines.back() + "\n";
    }
    lines.emplace_back("unfinished");
    text += lines.back();
    for (const size_t piece : {size_t{150}, size_t{4096}, text.size()})
    {
        textviews::LineStore store;
        Store(store, text, piece);
        ExpectSame(store, lines);
        int blocks = 0;
        for (int i = 0; i < store.Count(); ++blocks)
        {
            i += store.BlockOf(i).lineCount;
        }
        EXPECT_LT(blocks, 20) << "a file that grows by little must not take a leaf a time";
        EXPECT_EQ(store.LowerBound("line"), 0);
    }
}

TEST(StoredLines, KnowTheirWidth)
{
    std::vector<wxTextStretch> found;
    const std::string          text = "a\n\n\xc3\xa4\xc3\xa4\n\t\xe4\xb8\xad\n"; // a wide character
    EXPECT_EQ(text.size(), wxFindTextLines(text + "rest", 0, found));
    ASSERT_EQ(1u, found.size());
    EXPECT_EQ(4, found[0].lines);
    EXPECT_EQ(6, found[0].cells);
}

TEST(StoredLines, ALineThatDoesNotEndIsCut)
{
    const std::string    sign("\xe2\x82\xac"); // not to be torn apart
    const std::string    piece(k_LongestTextLine - 1, 'x');
    textviews::LineStore store;
    Store(store, piece + sign + piece + "\nnext\n");
    ExpectSame(store, {piece, sign + piece.substr(2), "xx", "next"});
    for (int line = -1; line < 5; ++line)
    {
        EXPECT_EQ(line == 0 || line == 1, store.GoesOn(line)) << line;
    }
}

// There are as many lines as before, and they say what has become of them.
TEST(StoredLines, WhatCannotBeReadSaysSo)
{
    std::string text;
    for (int i = 0; i < 4000; ++i)
    {
        text += "line " + std::to_string(i) + "\n";
    }
    for (const bool isBad : {false, true})
    {
        textviews::LineStore store;
        const auto           source = Store(store, text);
        const size_t         end = text.find("line 100\n");
        if (isBad)
        {
            source->m_BadFrom = end;
        }
        else
        {
            source->m_Text.resize(end);
        }
        EXPECT_EQ(4000, store.Count());
        EXPECT_EQ("line 99", store.LineNow(99));
        const std::string note(store.LineNow(100));
        EXPECT_NE(std::string::npos, note.find(isBad ? "Input/output error" : "no longer")) << note;
        EXPECT_EQ("--- lost ---", store.LineNow(101));
        EXPECT_EQ(4000 - 1, store.BlockOf(3999).firstLine + store.BlockOf(3999).lineCount - 1);
        for (int i = 0; i < 4000; ++i)
        {
            store.Erase(store.Count() / 2);
        }
        EXPECT_EQ(0, store.Count());
    }
}

// Whoever looks at a window waits a moment only, and is told later.
TEST(StoredLines, ADiskThatStandsStillHoldsNobodyUp)
{
    std::atomic<int>     told{0};
    textviews::LineStore store([&told] { ++told; });
    std::string          text;
    for (int i = 0; i < 20000; ++i)
    {
        text += "line " + std::to_string(i) + "\n";
    }
    const auto source = Store(store, text);
    source->StandStill(true);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 20000; i += 500)
    {
        EXPECT_EQ("\xe2\x80\xa6", store.Line(i));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(250));
    {
        textviews::LineStore left; // goes while its thread reads
        left.AppendStored(source, {0, 7, 6, 1, 6});
        left.Line(0);
    }
    source->StandStill(false);
    EXPECT_TRUE(WaitFor([&] { return told > 0 && store.Line(7000) == "line 7000"; }));
    EXPECT_EQ("line 19999", store.LineNow(19999));
}

// For whoever goes through all lines without waiting, either way, while those before are looked at.
TEST(StoredLines, TheNextOnesAreReadAhead)
{
    std::string text;
    for (int i = 0; i < 40000; ++i)
    {
        text += "line " + std::to_string(i) + "\n";
    }
    for (const bool forward : {true, false})
    {
        textviews::LineStore store;
        const auto           source = Store(store, text);
        const int            line = store.Count() / 2;
        const auto           first = store.BlockSoon(line);
        ASSERT_TRUE(first);
        const int next = forward ? first->firstLine + first->lineCount : first->firstLine - 1;
        EXPECT_EQ(1, source->m_Reads);
        const auto second = store.BlockSoon(next);
        ASSERT_TRUE(second);
        EXPECT_EQ("line " + std::to_string(next), second->Line(next - second->firstLine));
        EXPECT_TRUE(WaitFor([&] { return source->m_Reads == 2 + 4; })) << source->m_Reads;
    }
}

TEST(StoredLines, EndWhereTheyCannotBeCountedAnyMore)
{
    textviews::LineStore store({}, 5);
    store.Append("one");
    const auto source = std::make_shared<Source>("a\nb\nc\n");
    EXPECT_EQ(3, store.AppendStored(source, {0, 6, 3, 3, 1}));
    EXPECT_EQ(1, store.AppendStored(source, {0, 6, 3, 3, 1}));
    EXPECT_TRUE(store.IsFull());
    EXPECT_EQ(0, store.AppendStored(source, {0, 6, 3, 3, 1}));
    store.Append("more");
    store.Insert(0, "more");
    EXPECT_EQ(5, store.Count());
    EXPECT_EQ("a", store.LineNow(4));
}
