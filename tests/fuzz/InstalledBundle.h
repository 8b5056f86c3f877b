// The panel's bundle in a folder, for programs that have its classes themselves.

#ifndef TESTS_FUZZ_INSTALLEDBUNDLE_H
#define TESTS_FUZZ_INSTALLEDBUNDLE_H

#include <filesystem>

namespace fuzz {

// Makes BackgroundNumbering.plugin in the folder, with the resources that were built and an
// executable without classes: the runtime takes each class once. The answer is its path.
std::filesystem::path InstallBundle(const std::filesystem::path &folder);

}  // namespace fuzz

#endif
