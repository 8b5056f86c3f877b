// Whether a shared library is all there.

#ifndef HOST_BASE_WHOLELIBRARY_H
#define HOST_BASE_WHOLELIBRARY_H

#include <filesystem>

// False for a file that ends before the parts that its ELF header and program headers name: one
// that was copied half-way. Loading it would end the program. Files that are no ELF files are for
// the loader to refuse.
bool IsWholeLibrary(const std::filesystem::path &path);

#endif
