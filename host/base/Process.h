// What the program shares with the system: its arguments, its variables, its streams.

#ifndef HOST_BASE_PROCESS_H
#define HOST_BASE_PROCESS_H

#include <string_view>

// Call before anything else. A closed standard stream is opened so that no other file takes its
// place and writing to it fails. A file that gets larger than it may is a failure, not the end. The
// platform's process object, which raises for arguments and variables that are not UTF-8 and makes
// defaults of arguments, gets neither. What is logged goes to the system's log. Texts are in the
// user's language.
void PrepareProcess();

// Writes results to standard output. False, with a message, if they did not get there.
bool PrintResults(std::string_view text);

#endif
