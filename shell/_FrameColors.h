#pragma once

/// From now on the program follows a change of the colour scheme in another program.
void _AnswerColorRequests();
