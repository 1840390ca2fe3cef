#pragma once

/// Marks what a library of this project exports; everything else stays hidden.
#define TOLVAN_API __attribute__((visibility("default")))
