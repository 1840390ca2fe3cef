#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <map>
#include <vector>

/// The words a program was started with: the program's name, options ("--name", "--name=value" or,
/// for the options named at construction, "--name value") and plain arguments. "--" ends the
/// options; "-" and a negative number are plain arguments. One dash is as good as two. An option
/// given twice has its last value.
class TOLVAN_API CommandLine
{
public:
    CommandLine() = default;
    /// `withValue`: the names of options (without dashes) that take the next word as their value.
    explicit CommandLine(std::vector<String> words, std::vector<String> withValue = {});
    CommandLine(int argc, const char* const* argv, std::vector<String> withValue = {});

    const String&              Program() const { return m_Program; }
    const std::vector<String>& Words() const { return m_Words; } ///< All, the program first.
    const std::vector<String>& Arguments() const { return m_Arguments; }
    /// Whether the option (its name without dashes) was given.
    bool Has(const String& option) const;
    /// Reads "--option=value" and, whatever was named at construction, "--option value". Empty for
    /// an option without a value, `otherwise` when it was not given at all.
    String Value(const String& option, const String& otherwise = String()) const;
    /// Says from now on that `option` takes the next word as its value.
    void TakesValue(const String& option);

private:
    void Parse();
    /// Whether the option took the next word (null: there is none) as its value.
    bool AddOption(const String& word, const String* next);

    String                   m_Program;
    std::vector<String>      m_Words;
    std::vector<String>      m_WithValue;
    std::vector<String>      m_Arguments;
    std::map<String, String> m_Options;
};
