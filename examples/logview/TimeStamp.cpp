#include "logview/TimeStamp.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace
{
/// What stands for what in a form; any other character for itself.
///   Y M D h m s  digits of year, month, day, hour, minute and second
///   d            a day of one digit, with or without a blank before it, or of two
///   B W          the name of a month, of a day of the week
///   T            a T, or one or two blanks
///   Z            a word or an offset that names the zone
///   E            seconds since 1970
constexpr std::string_view kForms[] = {
    "Y-M-DTh:m:s",     "B d h:m:s",     "D/B/Y:h:m:s",    "Y/M/DTh:m:s", "Y.M.DTh:m:s",
    "W B d h:m:s Z Y", "W B d h:m:s Y", "W, d B Y h:m:s", "d B Y h:m:s", "D.M.YTh:m:s",
    "YMDTh:m:s",       "YMDThms",       "Y-M-DTh:m",      "E",
};
constexpr size_t kFormCount = std::size(kForms);

constexpr size_t kMostBefore = 24; // bytes of brackets, blanks and colours before a stamp

constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 7>  kWeekdays = {"Mon", "Tue", "Wed", "Thu",
                                                        "Fri", "Sat", "Sun"};

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsWord(char c)
{
    return IsDigit(c) || IsLetter(c);
}

// Goes through a text from a place on.
class _Scan
{
public:
    _Scan(std::string_view text, size_t at) : m_Text(text), m_At(at) {}

    size_t At() const { return m_At; }
    char   Peek(size_t ahead = 0) const
    {
        return m_At + ahead < m_Text.size() ? m_Text[m_At + ahead] : '\0';
    }
    void Skip(size_t count = 1) { m_At += count; }
    bool Take(char c)
    {
        const bool is = Peek() == c && m_At < m_Text.size();
        m_At += is ? 1 : 0;
        return is;
    }
    bool Number(int digits, int low, int high, int& value)
    {
        int number = 0;
        for (int i = 0; i < digits; ++i)
        {
            if (!IsDigit(Peek()))
            {
                return false;
            }
            number = number * 10 + (Peek() - '0');
            Skip();
        }
        value = number;
        return number >= low && number <= high;
    }
    // Its number from 1 on; 0 for none.
    template <class Names> int Name(const Names& names)
    {
        int number = 0;
        for (const std::string_view name : names)
        {
            ++number;
            if (m_Text.substr(m_At, name.size()) == name && !IsLetter(Peek(name.size())))
            {
                Skip(name.size());
                return number;
            }
        }
        return 0;
    }
    size_t Digits() const
    {
        size_t count = 0;
        while (IsDigit(Peek(count)))
        {
            ++count;
        }
        return count;
    }

private:
    std::string_view m_Text;
    size_t           m_At;
};

// "+0100", "+01:00", "-05", "Z", "UTC"; false where none of them stands.
bool TakeZone(_Scan& scan, TimeStamp& stamp)
{
    _Scan look = scan;
    if (look.Peek() == '+' || look.Peek() == '-')
    {
        const int sign = look.Peek() == '-' ? -1 : 1;
        int       hours = 0;
        int       minutes = 0;
        look.Skip();
        if (!look.Number(2, 0, 14, hours))
        {
            return false;
        }
        const bool hasColon = look.Take(':');
        if ((hasColon || IsDigit(look.Peek())) && !look.Number(2, 0, 59, minutes))
        {
            return false;
        }
        stamp.zone = sign * (hours * 3600 + minutes * 60);
    }
    else
    {
        constexpr std::array<std::string_view, 3> kGreenwich = {"Z", "UTC", "GMT"};
        if (look.Name(kGreenwich) == 0)
        {
            return false;
        }
        stamp.zone = 0;
    }
    if (IsWord(look.Peek()))
    {
        stamp.zone.reset();
        return false;
    }
    scan = look;
    return true;
}

void TakeFraction(_Scan& scan, TimeStamp& stamp)
{
    if ((scan.Peek() != '.' && scan.Peek() != ',') || !IsDigit(scan.Peek(1)))
    {
        return;
    }
    scan.Skip();
    int unit = 100'000;
    for (; IsDigit(scan.Peek()); scan.Skip(), unit /= 10)
    {
        stamp.micros += (scan.Peek() - '0') * unit;
    }
}

// Since 1970: from 2001 to 2100, so that not every number is one.
bool TakeEpoch(_Scan& scan, TimeStamp& stamp)
{
    constexpr long long kFirst = 1'000'000'000;
    constexpr long long kLast = 4'102'444'800;
    const size_t        digits = scan.Digits();
    if (digits != 10 && digits != 13 && digits != 16)
    {
        return false;
    }
    long long number = 0;
    for (size_t i = 0; i < digits; ++i, scan.Skip())
    {
        number = number * 10 + (scan.Peek() - '0');
    }
    const long long unit = digits == 10 ? 1 : digits == 13 ? 1000 : 1'000'000;
    const long long seconds = number / unit;
    stamp.micros = static_cast<int>(number % unit * (1'000'000 / unit));
    stamp.year = 1970;
    stamp.day += static_cast<int>(seconds / 86400);
    stamp.second = static_cast<int>(seconds % 86400);
    stamp.zone = 0;
    if (unit == 1)
    {
        TakeFraction(scan, stamp);
    }
    return seconds >= kFirst && seconds <= kLast;
}

bool TakePart(char part, _Scan& scan, TimeStamp& stamp)
{
    switch (part)
    {
    case 'Y':
        return scan.Number(4, 1970, 2999, stamp.year);
    case 'M':
        return scan.Number(2, 1, 12, stamp.month);
    case 'D':
        return scan.Number(2, 1, 31, stamp.day);
    case 'd':
        scan.Take(' ');
        return scan.Number(IsDigit(scan.Peek(1)) ? 2 : 1, 1, 31, stamp.day);
    case 'h':
        return scan.Number(2, 0, 24, stamp.hour);
    case 'm':
        return scan.Number(2, 0, 59, stamp.minute);
    case 's':
        return scan.Number(2, 0, 60, stamp.second);
    case 'B':
        return (stamp.month = scan.Name(kMonths)) > 0;
    case 'W':
        return scan.Name(kWeekdays) > 0;
    case 'T':
        return scan.Take('T') || scan.Take('t') || scan.Take('_') ||
               (scan.Take(' ') && (scan.Take(' ') || true));
    case 'Z':
        if (!TakeZone(scan, stamp))
        {
            size_t letters = 0;
            for (; IsLetter(scan.Peek()); scan.Skip())
            {
                ++letters;
            }
            return letters > 0;
        }
        return true;
    case 'E':
        return TakeEpoch(scan, stamp);
    default:
        return scan.Take(part);
    }
}

std::optional<TimeStamp> MatchForm(size_t form, std::string_view line, size_t at)
{
    TimeStamp stamp;
    _Scan     scan(line, at);
    for (const char part : kForms[form])
    {
        if (!TakePart(part, scan, stamp))
        {
            return {};
        }
    }
    const bool isPart = kForms[form].back() == 'm' ? scan.Peek() == ':'
                                                   : kForms[form] == "E" && IsLetter(scan.Peek());
    if (isPart || IsDigit(scan.Peek()))
    {
        return {};
    }
    if (kForms[form].back() == 's')
    {
        TakeFraction(scan, stamp);
    }
    if (!stamp.zone && !TakeZone(scan, stamp) && scan.Take(' '))
    {
        TakeZone(scan, stamp);
    }
    stamp.form = form;
    stamp.begin = at;
    return stamp;
}

// What stands before it, as far as that is no text.
size_t StartOfText(std::string_view line)
{
    _Scan scan(line, 0);
    while (scan.At() < std::min(line.size(), kMostBefore) && !IsWord(scan.Peek()))
    {
        if (scan.Peek() == '\x1b' && scan.Peek(1) == '[') // a colour
        {
            scan.Skip(2);
            while (IsDigit(scan.Peek()) || scan.Peek() == ';')
            {
                scan.Skip();
            }
            scan.Skip();
            continue;
        }
        const bool isPriority = scan.Take('<');
        if (!isPriority)
        {
            scan.Skip();
            continue;
        }
        const size_t digits = scan.Digits();
        if (digits > 0 && digits <= 3 && scan.Peek(digits) == '>')
        {
            scan.Skip(digits + 1);
            const bool hasVersion = IsDigit(scan.Peek()) && scan.Peek(1) == ' ';
            scan.Skip(hasVersion ? 2 : 0);
        }
    }
    return scan.At();
}

// In one of the forms from the first one on, before `end`.
std::optional<TimeStamp> MatchAny(std::string_view line, size_t at, size_t end)
{
    const char begin = line[at];
    const bool mayBe = IsDigit(begin) || (begin >= 'A' && begin <= 'W');
    for (size_t form = 0; mayBe && form < end; ++form)
    {
        if (const auto stamp = MatchForm(form, line, at))
        {
            return stamp;
        }
    }
    return {};
}
} // namespace

std::optional<TimeStamp> StampAtStart(std::string_view line, size_t first)
{
    const size_t at = StartOfText(line);
    if (at >= line.size())
    {
        return {};
    }
    if (first > 0 && first < kFormCount)
    {
        if (const auto stamp = MatchForm(first, line, at))
        {
            return stamp;
        }
    }
    return MatchAny(line, at, kFormCount);
}

std::optional<TimeStamp> StampInside(std::string_view line)
{
    const size_t end = std::min(line.size(), k_StampReach);
    for (size_t at = 0; at < end; ++at)
    {
        const bool isStart = IsWord(line[at]) && (at == 0 || !IsWord(line[at - 1]));
        if (!isStart)
        {
            continue;
        }
        if (const auto stamp = MatchAny(line, at, kFormCount - 1))
        {
            return stamp;
        }
    }
    return {};
}
