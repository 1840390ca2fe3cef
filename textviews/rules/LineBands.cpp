#include "textviews/rules/LineBands.h"

#include <algorithm>

namespace textviews
{
void LineBands::Reset(int lines)
{
    m_Bands.clear();
    if (lines > 0)
    {
        m_Bands.push_back({lines});
    }
    m_Lines = lines;
    m_BandLines = 1;
    ++m_Version;
    ForgetKnown();
}

LineBands::Place LineBands::PlaceOf(int line) const
{
    Place place;
    while (place.band < m_Bands.size() && place.firstLine + m_Bands[place.band].lines <= line)
    {
        place.firstLine += m_Bands[place.band].lines;
        ++place.band;
    }
    return place;
}

// Roughly: what is known of few lines may be forgotten.
bool LineBands::CanJoin(const Band& first, const Band& second, bool roughly) const
{
    const bool areFew = static_cast<int64_t>(first.lines) + second.lines <= m_BandLines;
    if (first.known != second.known)
    {
        return roughly && areFew;
    }
    const bool isAlike = first.uniform && second.uniform && first.marks == second.marks;
    return !first.known || isAlike || areFew;
}

void LineBands::AddBand(std::vector<Band>& bands, const Band& band, bool roughly) const
{
    if (band.lines == 0)
    {
        return;
    }
    if (bands.empty() || !CanJoin(bands.back(), band, roughly))
    {
        bands.push_back(band);
        return;
    }
    Band& last = bands.back();
    last.uniform = last.uniform && band.uniform && last.marks == band.marks;
    last.known = last.known && band.known;
    last.lines += band.lines;
    last.marks = static_cast<LineMarks>(last.marks | band.marks);
}

// At the end, where most of it happens, this costs next to nothing.
void LineBands::Replace(size_t first, size_t count, const std::vector<Band>& bands)
{
    const auto at = m_Bands.begin() + static_cast<std::ptrdiff_t>(first);
    const auto place = m_Bands.erase(at, at + static_cast<std::ptrdiff_t>(count));
    m_Bands.insert(place, bands.begin(), bands.end());
    ++m_Version;
    if (m_Bands.size() > k_MostBands)
    {
        Coarsen();
    }
}

// Until there is room for as many again.
void LineBands::Coarsen()
{
    std::vector<Band> bands;
    do
    {
        m_BandLines *= 2;
        bands.clear();
        for (const Band& band : m_Bands)
        {
            AddBand(bands, band, true);
        }
    } while (bands.size() > k_MostBands / 2);
    m_Bands.assign(bands.begin(), bands.end());
    ForgetKnown();
}

LineBands::Range LineBands::NextUnknown() const
{
    while (m_Known.band < m_Bands.size() && m_Bands[m_Known.band].known)
    {
        m_Known.firstLine += m_Bands[m_Known.band].lines;
        ++m_Known.band;
    }
    const int lines = m_Known.band < m_Bands.size() ? m_Bands[m_Known.band].lines : 0;
    return {m_Known.firstLine, m_Known.firstLine + lines};
}

void LineBands::Learn(int end, const std::vector<MarkedLine>& marked)
{
    const Range unknown = NextUnknown();
    end = std::min(end, unknown.end);
    if (end <= unknown.first)
    {
        return;
    }
    const size_t      index = m_Known.band;
    const bool        hasLast = index > 0;
    std::vector<Band> bands;
    if (hasLast)
    {
        bands.push_back(m_Bands[index - 1]);
    }
    int next = unknown.first;
    for (const MarkedLine& each : marked)
    {
        if (each.line >= next && each.line < end && each.marks != 0)
        {
            AddBand(bands, {each.line - next, 0, true, true});
            AddBand(bands, {1, each.marks, true, true});
            next = each.line + 1;
        }
    }
    AddBand(bands, {end - next, 0, true, true});
    AddBand(bands, {unknown.end - end, m_Bands[index].marks, false, false});
    if (hasLast)
    {
        m_Known.firstLine -= m_Bands[index - 1].lines;
        --m_Known.band;
    }
    Replace(hasLast ? index - 1 : index, hasLast ? 2 : 1, bands);
}

int LineBands::NextMarked(int line, bool forward, LineMarks wanted) const
{
    if (line < 0 || line >= m_Lines)
    {
        return -1;
    }
    const auto isWanted = [wanted](const Band& band)
    { return !band.known || (band.marks & wanted) != 0; };
    Place place = PlaceOf(line);
    if (isWanted(m_Bands[place.band]))
    {
        return line;
    }
    if (forward)
    {
        while (place.band < m_Bands.size() && !isWanted(m_Bands[place.band]))
        {
            place.firstLine += m_Bands[place.band].lines;
            ++place.band;
        }
        return place.band < m_Bands.size() ? place.firstLine : -1;
    }
    while (place.band > 0)
    {
        const int end = place.firstLine;
        --place.band;
        place.firstLine -= m_Bands[place.band].lines;
        if (isWanted(m_Bands[place.band]))
        {
            return end - 1;
        }
    }
    return -1;
}

std::vector<LineMarks> LineBands::Rows(int rows, int total) const
{
    std::vector<LineMarks> marks(static_cast<size_t>(std::max(rows, 0)));
    const auto             rowOf = [rows, total](int line)
    { return static_cast<size_t>(static_cast<int64_t>(line) * rows / total); };
    int first = 0;
    for (const Band& band : m_Bands)
    {
        if (band.marks != 0 && rows > 0 && first + band.lines <= total)
        {
            for (size_t row = rowOf(first); row <= rowOf(first + band.lines - 1); ++row)
            {
                marks[row] = static_cast<LineMarks>(marks[row] | band.marks);
            }
        }
        first += band.lines;
    }
    return marks;
}

void LineBands::LineInserted(int line)
{
    const bool isLast = line >= m_Lines;
    ++m_Lines;
    if (isLast && !m_Bands.empty() && !m_Bands.back().known)
    {
        ++m_Bands.back().lines;
        return;
    }
    ++m_Version;
    if (isLast)
    {
        m_Bands.push_back({1});
        return;
    }
    const Place place = PlaceOf(line);
    Band&       band = m_Bands[place.band];
    if (!band.known)
    {
        ++band.lines;
    }
    else if (band.uniform)
    {
        std::vector<Band> bands;
        Band              part = band;
        part.lines = line - place.firstLine;
        AddBand(bands, part);
        AddBand(bands, {1});
        part.lines = band.lines - part.lines;
        AddBand(bands, part);
        Replace(place.band, 1, bands);
    }
    else
    {
        band.known = false;
        ++band.lines;
    }
    ForgetKnown();
}

// Where all lines of a band have the same marks, so have those that are left.
void LineBands::LineErased(int line)
{
    if (line < 0 || line >= m_Lines)
    {
        return;
    }
    --m_Lines;
    ++m_Version;
    const Place place = PlaceOf(line);
    Band&       band = m_Bands[place.band];
    --band.lines;
    const bool isFirst = line == 0 && m_Known.band > 0;
    if (band.lines == 0)
    {
        m_Bands.erase(m_Bands.begin() + static_cast<std::ptrdiff_t>(place.band));
        m_Known.band -= isFirst ? 1 : 0;
    }
    else if (!band.uniform && band.known)
    {
        band.known = false;
        ForgetKnown();
        return;
    }
    if (isFirst)
    {
        --m_Known.firstLine;
    }
    else
    {
        ForgetKnown();
    }
}
} // namespace textviews
