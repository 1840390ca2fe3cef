#pragma once

namespace shell
{
/// From now on the program follows a change of the colour scheme in another program.
void AnswerColorRequests();
} // namespace shell
