#pragma once

#include "monitor/FarmJob.h"

/// Where the pictures of a job's frames are. Without a window.

/// The file of the frame with that number (from 1); empty when nothing is known of one.
Path PictureOf(const FarmJob& job, int number);
/// Why the picture cannot be shown, for the user; empty when it can.
String PictureProblem(const FarmJob& job, int number);
