#pragma once

#include "vesta/Path.h"
#include "vesta/String.h"

#include <vector>

/// Starts the program tolvan-master from the folder of the running program in the background: in a
/// session of its own, with nothing of this program's files, and nobody has to wait for it. Returns
/// an empty text once it runs (its socket may take a moment to answer: see `Components::DidStart`),
/// or why it cannot be started. A master that runs already makes the new one end at once. Any
/// thread.
String StartMaster(const std::vector<String>& options = {});

/// The same for any program.
String StartInBackground(const Path& program, const std::vector<String>& options);
