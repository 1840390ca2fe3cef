#pragma once

/// Milliseconds since this process was started, as the system counts them.
long MillisecondsSinceStart();
