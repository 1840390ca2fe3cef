#pragma once

#include "vesta/String.h"

#include <vector>

/// The names of all colours, in the order of the table.
const std::vector<String>& _ColorNames();
