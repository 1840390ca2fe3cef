#include "textviews/search/LineSieve.h"

#include "internal/text/Folding.h"

#include <re2/filtered_re2.h>

#include <algorithm>

namespace textviews
{
namespace
{
constexpr int     kShortestText = 3; // bytes; shorter ones are in most lines
constexpr size_t  kMostTexts = 16;
constexpr int64_t kTrialLines = 4096;
constexpr int64_t kWorthwhile = 4; // of so many lines one may be left
} // namespace

LineSieve::LineSieve(std::unique_ptr<re2::FilteredRE2> filter,
                     const std::vector<std::string>&   texts)
    : m_Filter(std::move(filter)), m_Texts(texts.begin(), texts.end())
{
}

LineSieve::~LineSieve() = default;

std::unique_ptr<LineSieve> LineSieve::Make(const std::string& expression)
{
    RE2::Options options;
    options.set_log_errors(false);
    auto                     filter = std::make_unique<re2::FilteredRE2>(kShortestText);
    int                      id = 0;
    std::vector<std::string> texts;
    if (filter->Add(expression, options, &id) != RE2::NoError)
    {
        return nullptr;
    }
    filter->Compile(&texts);
    if (texts.empty() || texts.size() > kMostTexts)
    {
        return nullptr;
    }
    return std::unique_ptr<LineSieve>(new LineSieve(std::move(filter), texts));
}

const std::vector<int>& LineSieve::Rest(const LineStore::Block& block, int from, int end)
{
    m_Rest.clear();
    NoteTexts(block, from, end);
    for (int line = from; line < end; ++line)
    {
        if (MayHold(m_Found[static_cast<size_t>(line - from)]))
        {
            m_Rest.push_back(line);
        }
    }
    Judge(end - from, m_Rest.size());
    return m_Rest;
}

// One that lies across two lines is taken for the first one's, which is looked at then for nothing.
void LineSieve::NoteTexts(const LineStore::Block& block, int from, int end)
{
    const auto startOf = [&](int line)
    { return line < block.lineCount ? block.StartOf(line) : block.bytes.size(); };
    const size_t first = startOf(from);
    m_LowerCase.resize(startOf(end) - first);
    std::transform(block.bytes.data() + first, block.bytes.data() + startOf(end),
                   m_LowerCase.begin(), internal::LowerAscii);
    m_Found.assign(static_cast<size_t>(end - from), 0);
    const std::string_view bytes = m_LowerCase;
    for (size_t text = 0; text < m_Texts.size(); ++text)
    {
        for (size_t at = 0; at < bytes.size();)
        {
            const size_t hit = m_Texts[text].Find(bytes.substr(at));
            if (hit == std::string_view::npos)
            {
                break;
            }
            const int line = block.LineAt(first + at + hit);
            m_Found[static_cast<size_t>(line - from)] |= 1U << text;
            at = startOf(line + 1) - first;
        }
    }
}

bool LineSieve::MayHold(unsigned texts)
{
    const auto known = m_Known.find(texts);
    if (known != m_Known.end())
    {
        return known->second;
    }
    std::vector<int> found;
    for (size_t text = 0; text < m_Texts.size(); ++text)
    {
        if (texts >> text & 1)
        {
            found.push_back(static_cast<int>(text));
        }
    }
    std::vector<int> expressions;
    m_Filter->AllPotentials(found, &expressions);
    return m_Known[texts] = !expressions.empty();
}

void LineSieve::Judge(int looked, size_t left)
{
    m_LinesLooked += looked;
    m_LinesLeft += static_cast<int64_t>(left);
    m_Worthless = m_LinesLooked >= kTrialLines && m_LinesLeft * kWorthwhile > m_LinesLooked;
}
} // namespace textviews
