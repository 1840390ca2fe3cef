#pragma once

#include "vesta/String.h"

#include <vector>

namespace appearance
{
/// The names of all colours, in the order of the table.
const std::vector<String>& ColorNames();
} // namespace appearance
