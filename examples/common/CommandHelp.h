#pragma once

/// For the main function of a program with windows: answers "--help" with the text and "--version"
/// on the standard output, without a display. Whether it did: there is nothing else to do then.
bool AnswerCommandLine(int argc, char** argv, const char* program, const char* help);
