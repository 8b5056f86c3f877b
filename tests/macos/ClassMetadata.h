// What an executable of macOS tells its runtime of classes.

#ifndef TESTS_MACOS_CLASSMETADATA_H
#define TESTS_MACOS_CLASSMETADATA_H

#include <string>
#include <vector>

// From the lines of objdump --macho --objc-meta-data, in the form of tests/bundle/classes.txt.
std::string ClassMetadata(const std::vector<std::string> &lines);

#endif
