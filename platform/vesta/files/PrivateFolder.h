#pragma once

#include "vesta/String.h"

namespace vesta
{
/// Creates the folder and its parents, private to the user (mode 0700); what is there already stays
/// as it is. Returns an empty text, or the name of the first that cannot be had, with errno.
String MakePrivateFolder(const String& name);
} // namespace vesta
