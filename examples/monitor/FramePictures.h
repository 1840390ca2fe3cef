#pragma once

#include "monitor/FarmJob.h"

/// How a job's frames stand, and where their pictures are. Without a window.

/// The state of the frame with that number: a job that runs works on the one behind the last done.
const String& FrameState(const FarmJob& job, int number);

/// The file of the frame with that number (from 1); empty when nothing is known of one.
Path PictureOf(const FarmJob& job, int number);
/// Why the picture cannot be shown, for the user; empty when it can.
String PictureProblem(const FarmJob& job, int number);
