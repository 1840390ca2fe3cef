#pragma once

#include <iterator>
#include <random>
#include <string>

/// A line of what escape sequences are made of, of text and of any bytes.
inline std::string RandomLine(std::mt19937& random)
{
    using namespace std::string_literals;
    static const std::string kParts[] = {"\x1b",       "\x1b[",     "m",
                                         ";",          ":",         "38;5;",
                                         "48:2:",      "1",         "255",
                                         "\x1b[0m",    "\r",        "\x1b[K",
                                         "\x1b[2K",    "\x1b[1K",   "\x1b[G",
                                         "\x1b]8;;",   "\a",        "\x1b\\",
                                         "\x1b]",      "text",      "\xe6\xbc\xa2", // two cells
                                         "e\xcc\x81",  "\xcc\x81",  "\xe6\xbc",
                                         "\x1b[31;1m", "\x1b(B",    " ",
                                         "\0"s,        "0123456789"};
    std::string              line;
    for (auto i = random() % 24; i > 0; --i)
    {
        const auto choice = random() % 8;
        line += choice == 0 ? std::string(1, static_cast<char>(random()))
                            : kParts[random() % std::size(kParts)];
    }
    return line;
}
