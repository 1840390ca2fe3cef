#include "tolvan/ClientOptions.h"

const String o_AutoComplete = "AutoComplete";
