#pragma once

namespace shell
{
/// From now on the program follows a change of the colour scheme in another program and, where the
/// scheme is the desktop's, one of the desktop.
void AnswerColorRequests();
} // namespace shell
