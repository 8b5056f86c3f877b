// Commands of the documents that build or test all, and so are not run by a test.

#ifndef TESTS_DOCS_BUILDCOMMANDS_H
#define TESTS_DOCS_BUILDCOMMANDS_H

#include <string>
#include <vector>

// Whether the command's first word is one of make, cmake, ctest and scripts/...
bool IsBuildCommand(const std::vector<std::string> &words);

// Why it cannot do what it says: there is no such script, target, preset or test, or an argument is
// not understood here; empty: it can.
std::string WhyNotBuilt(const std::vector<std::string> &words);

#endif
