#pragma once

#include "vesta/String.h"

#include <vector>

namespace shell
{
/// The words of the program's command line as the bytes that they were given as. The toolkit leaves
/// out what is no text in the locale, a file's name perhaps, and takes some options for itself:
/// `taken` is what it has left, in UTF-8; the bytes of each of these come back, and in their places
/// those that it could not read. `taken` itself where the system does not tell the bytes.
std::vector<String> ProgramWords(const std::vector<String>& taken);

/// The same for `given` as the bytes.
std::vector<String> ProgramWords(const std::vector<String>& taken,
                                 const std::vector<String>& given);
} // namespace shell
