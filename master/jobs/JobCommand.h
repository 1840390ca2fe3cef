#pragma once

#include "vesta/Path.h"
#include "vesta/String.h"

#include <functional>
#include <vector>

namespace master
{
/// A reference's value; false when there is none of that name.
using Lookup = std::function<bool(const String& name, String& value)>;

/// Replaces every %Name% in `text` by its value, and %% by one percent sign. Values are taken as
/// they are: a percent sign in one refers to nothing. Throws an `Exception*` (ec_BadData) for a
/// reference without a value or without its end.
String ExpandReferences(const String& text, const Lookup& lookup);

/// The words of a job type's command line: cut at blanks outside quotes, then with their
/// references replaced, so that a value with blanks or quotes stays one word. Throws an
/// `Exception*` (ec_BadData) when there is no word, or a word that no program can be given.
std::vector<String> CommandWords(const String& commandLine, const Lookup& lookup);

/// The file of a program: a name with a slash is relative to `moduleFolder`, any other is looked
/// for in `ownFolder`, then in the folders of `searchPath` (separated by ":"). Throws an
/// `Exception*` (ec_Refused) that says where it was looked for.
Path FindProgram(const String& name, const Path& moduleFolder, const Path& ownFolder,
                 const String& searchPath);
} // namespace master
