// What the plug-in calls of the print system, libcups and the system log, in the order of the
// calls.
//
// A test program that links this defines the functions itself, in front of the real ones, which it
// then calls.

#ifndef TESTS_SUPPORT_INTERPOSED_H
#define TESTS_SUPPORT_INTERPOSED_H

#include <string>
#include <vector>

namespace interposed {

// "get KEY", "set KEY=VALUE", "set KEY=nil", "ppd KEYWORD", "log LINE", since the last Clear, of
// this thread.
const std::vector<std::string> &Calls();
// Those that begin with the prefix.
std::vector<std::string> Calls(const std::string &prefix);
void Clear();

// Statuses that the print-settings calls answer; a write that fails changes nothing. 0: they work.
void FailReads(int status);
void FailWrites(int status);

// Of the calls that make, read, list or change print settings: the one with this number, beginning
// with 1 from here on, answers this status; but for a read it does nothing. 0: none fails.
void FailCall(int number, int status);
// How many there have been since then.
int CallsCounted();
// The one that has failed, as in Calls, "create" or "copy"; empty: none has.
std::string FailedCall();

}  // namespace interposed

#endif
