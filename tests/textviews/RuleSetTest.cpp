#include "tests/textviews/SearchSupport.h"
#include "textviews/rules/LineJudge.h"
#include "textviews/rules/RuledPieces.h"
#include "textviews/wxTextRules.h"

#include <gtest/gtest.h>

#include <random>

using namespace textviews;
using Kind = wxTextRule::Kind;

namespace
{
wxTextRule Rule(const String& pattern, Kind kind, bool expression = false)
{
    wxTextRule rule;
    rule.pattern = pattern;
    rule.expression = expression;
    rule.kind = kind;
    return rule;
}

/// All that is found in the line, in steps of that many bytes.
RuleWork WorkOn(const RuleSet& rules, std::string_view line, size_t step = 1'000'000)
{
    RuleWork work;
    size_t   budget = step;
    while (!rules.GoOn(line, 0, work, budget))
    {
        budget = step;
    }
    return work;
}

Kind KindOf(const RuleSet& rules, std::string_view line)
{
    return rules.KindOf(WorkOn(rules, line));
}

std::vector<MarkedLine> MarksOf(LineJudge& judge, const LineStore& store, size_t budget)
{
    std::vector<MarkedLine> marked;
    for (int line = 0; line < store.Count();)
    {
        const LineStore::Block block = store.BlockOf(line);
        int                    from = line - block.firstLine;
        size_t                 left = budget;
        judge.Judge(block, from, block.lineCount, left, marked);
        line = block.firstLine + from;
    }
    return marked;
}
} // namespace

TEST(RuleSetTest, StandardRulesTellErrorsFromWhatOnlyNamesThem)
{
    const RuleSet rules(wxStandardTextRules());
    ASSERT_EQ(rules.Rules().size(), 4u);
    const struct
    {
        const char* line;
        Kind        kind;
    } cases[] = {
        {"ERROR: cannot open /scene/a.ma", Kind::Error},
        {"frame 12 failed with exit code 1", Kind::Error},
        {"main.cpp:12:3: error: expected ';'", Kind::Error},
        {"ValueError: nothing there", Kind::Error},
        {"java.lang.NullPointerException", Kind::Error},
        {"Traceback (most recent call last):", Kind::Error},
        {"Segmentation fault (core dumped)", Kind::Error},
        {"[fatal] no license", Kind::Error},
        {"main.cpp:12:3: warning: unused variable", Kind::Warning},
        {"DeprecationWarning: use another one", Kind::Warning},
        {"WARN  texture is missing", Kind::Warning},
        {"1 warning and 2 errors generated.", Kind::Error},
        {"build finished: 0 errors, 3 warnings", Kind::Warning},
        {"done, 0 errors, 0 warnings", Kind::None},
        {"no errors", Kind::None},
        {"without known errors", Kind::None},
        {"errors: 0", Kind::None},
        {"errors: 7", Kind::Error},
        {"10 errors", Kind::Error},
        {"INFO  frame 1 is done", Kind::Information},
        {"the mirror of terrain is ready", Kind::None},
        {"notation of the hinterland", Kind::None},
        {"", Kind::None},
    };
    for (const auto& each : cases)
    {
        EXPECT_EQ(KindOf(rules, each.line), each.kind) << each.line;
    }
}

TEST(RuleSetTest, AnEarlierRuleHasWhatItFinds)
{
    wxTextRule        line = Rule("error", Kind::Error);
    const RuleSet     rules({Rule("error 404", Kind::Information), line, Rule("r", Kind::Warning)});
    const std::string text = "r error 404 error";
    const RuleWork    work = WorkOn(rules, text);
    ASSERT_EQ(work.hits.size(), 3u);
    EXPECT_EQ(work.hits[0].rule, 2);
    EXPECT_EQ(work.hits[1].rule, 0);
    EXPECT_EQ(work.hits[1].bytes, (ByteSpan{2, 11}));
    EXPECT_EQ(work.hits[2].rule, 1);
    EXPECT_EQ(rules.KindOf(work), Kind::Error);
    EXPECT_EQ(rules.LineRuleOf(work), -1);
    line.part = wxTextRule::Part::Line;
    EXPECT_EQ(RuleSet({line}).LineRuleOf(WorkOn(RuleSet({line}), text)), 0);
}

TEST(RuleSetTest, RulesThatAreOffEmptyOrWrongAreNotFound)
{
    wxTextRule off = Rule("x", Kind::Error);
    off.on = false;
    const wxTextRule wrong = Rule("(x", Kind::Error, true);
    EXPECT_TRUE(
        RuleSet({off, wrong, Rule("", Kind::Error), Rule("", Kind::Error, true)}).IsEmpty());
    EXPECT_FALSE(wxTextRuleProblem(wrong).empty());
    EXPECT_TRUE(wxTextRuleProblem(Rule("(x", Kind::Error)).empty());
    EXPECT_EQ(KindOf(RuleSet({off, Rule("(x", Kind::Warning)}), "a (x"), Kind::Warning);
    // A quotation that is left open does not hide the next rule; bytes that are no text are found.
    const RuleSet open({Rule("\\Qa)", Kind::Warning, true), Rule("b", Kind::Error, true)});
    EXPECT_EQ(KindOf(open, "a) b"), Kind::Error);
    EXPECT_EQ(KindOf(RuleSet({Rule("\xff!", Kind::Error), Rule("b", Kind::Warning)}), "\xff!b"),
              Kind::Error);
}

TEST(RuleSetTest, CaseAndWordsCount)
{
    wxTextRule rule = Rule("Err", Kind::Error);
    EXPECT_EQ(KindOf(RuleSet({rule}), "terrain"), Kind::Error);
    rule.wholeWords = true;
    EXPECT_EQ(KindOf(RuleSet({rule}), "terrain"), Kind::None);
    EXPECT_EQ(KindOf(RuleSet({rule}), "(err)"), Kind::Error);
    rule.matchCase = true;
    EXPECT_EQ(KindOf(RuleSet({rule}), "(err)"), Kind::None);
    EXPECT_EQ(KindOf(RuleSet({rule}), "Err"), Kind::Error);
    EXPECT_EQ(KindOf(RuleSet({Rule("\xc3\x84rger", Kind::Error)}), "\xc3\xa4RGER"), Kind::Error);
}

// However it is cut into steps, and whichever lines share a block.
TEST(RuleSetTest, StepsAndBlocksFindTheSame)
{
    std::mt19937     random(11);
    const char*      parts[] = {"error ",   "Warn",    " 0 errors",
                                "\x1b[31m", "\x1b[0m", "frame ",
                                "\xc3\xa9", "\xff",    "a long stretch of other words ",
                                "fai",      "led"};
    LineStore        store;
    std::vector<int> lengths;
    for (int i = 0; i < 1500; ++i)
    {
        std::string line;
        const int   count = i % 1000 == 7 ? 9000 : static_cast<int>(random() % 8);
        for (int part = 0; part < count; ++part)
        {
            line += parts[random() % std::size(parts)];
        }
        store.Append(line);
    }
    const auto rules = std::make_shared<const RuleSet>(wxStandardTextRules());
    LineFolder folder;
    for (const bool folded : {false, true})
    {
        std::vector<MarkedLine> expected;
        for (int i = 0; i < store.Count(); ++i)
        {
            std::string text(store.LineNow(i));
            if (folded && LineFolder::Folds(text))
            {
                text = PlainText(text, folder.Fold(std::string(text), false));
            }
            const Kind kind = KindOf(*rules, text);
            if (kind == Kind::Error || kind == Kind::Warning)
            {
                expected.push_back({i, kind == Kind::Error ? k_ErrorMark : k_WarningMark});
            }
        }
        ASSERT_GT(expected.size(), 250u);
        for (const size_t budget : {20'000u, 100'000u})
        {
            RuleJudge  judge(rules, folded);
            const auto marked = MarksOf(judge, store, budget);
            ASSERT_EQ(marked.size(), expected.size()) << budget << folded;
            for (size_t i = 0; i < marked.size(); ++i)
            {
                ASSERT_EQ(marked[i].line, expected[i].line) << budget << folded;
                ASSERT_EQ(marked[i].marks, expected[i].marks) << marked[i].line;
            }
        }
    }
}

TEST(RuleSetTest, AColouredWordIsFoundWhereItIsShown)
{
    const auto      rules = std::make_shared<const RuleSet>(wxStandardTextRules());
    const LineStore store = StoreOf(
        {"\x1b[1;31merror\x1b[0m: it", "er\x1b[1mror", "10 %\rerror", "error 10\rdone 100 %"});
    const auto linesOf = [&](bool folded)
    {
        RuleJudge        judge(rules, folded);
        std::vector<int> lines;
        for (const MarkedLine& each : MarksOf(judge, store, 1000))
        {
            lines.push_back(each.line);
        }
        return lines;
    };
    EXPECT_EQ(linesOf(true), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(linesOf(false), (std::vector<int>{0, 2, 3}));
}

TEST(RuledPiecesTest, SpansCutThePiecesWhereTheyAreShown)
{
    const TextColour  red{TextColour::Kind::Direct, 255, 0, 0};
    const std::string text = "ab\xc3\xa9 error!";
    const ShownPieces plain = PiecesOfText(text, {}, 100, {{{5, 10}, red}});
    ASSERT_EQ(plain.size(), 3u);
    EXPECT_EQ(plain[1].In(text), "error");
    EXPECT_EQ(plain[1].cell, 4);
    EXPECT_EQ(plain[1].cells, 5);
    EXPECT_EQ(plain[1].style.ink, red);
    EXPECT_EQ(plain[2].cell, 9);
    // What is seen only, and a hit that begins before it.
    const ShownPieces part = PiecesOfText(text, {7, 6, 6}, 8, {{{5, 10}, red}});
    ASSERT_EQ(part.size(), 1u);
    EXPECT_EQ(part[0].In(text), "ro");
    EXPECT_EQ(part[0].style.ink, red);

    const std::string coloured = "x\x1b[1mer\x1b[4mror\x1b[0my";
    LineFolder        folder;
    const ShownPieces pieces = folder.Fold(coloured, true);
    ASSERT_EQ(RuledText(coloured, pieces), "xerrory");
    const ShownPieces cut = RecolouredPieces(coloured, pieces, {0, 100}, {{{1, 6}, red}});
    std::string       shown;
    int64_t           cell = 0;
    for (const ShownPiece& piece : cut)
    {
        EXPECT_EQ(piece.cell, cell);
        cell = piece.End();
        shown += piece.style.ink == red ? "[" + std::string(piece.In(coloured)) + "]"
                                        : std::string(piece.In(coloured));
    }
    EXPECT_EQ(shown, "x[er][ror]y");
    EXPECT_TRUE(cut[1].style.bold) << "the program's own style stays";
}
