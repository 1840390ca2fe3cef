#pragma once

#include "vesta/String.h"

#include <vector>

/// The lines of the text views' workload, the same in every run. No toolkit is needed for them.

constexpr int kLinesPerRepaint = 1000;
constexpr int kSortedLines = 50000;

/// Lines of 40 to 160 characters, 100 in the mean, that look like a render log. There are some
/// thousand, to be used over and over.
const std::vector<String>& WorkloadLines();
/// One of them for every number.
const String& WorkloadLine(int number);
/// The same line as a program prints it for a terminal: its number in green, and each warning bold
/// and yellow.
const String& ColouredLine(int number);
/// `kSortedLines` lines that come in no order, to be kept sorted byte by byte.
const std::vector<String>& UnsortedLines();
