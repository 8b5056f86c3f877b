// The bytes of printer descriptions.

#ifndef HOST_PPD_PPDSOURCE_H
#define HOST_PPD_PPDSOURCE_H

#include <filesystem>
#include <string>
#include <string_view>

#include "host/base/Expected.h"
#include "host/ppd/MemoryFile.h"
#include "host/ppd/PPDFile.h"

// The bytes of a file, uncompressed; they need not be a PPD file's. The failure, as that of
// PPDFile::Open: also more than 16 MiB, or compressed bytes that are cut off.
Expected<std::string> ReadPPD(const std::filesystem::path &path);

// As PPDFile::Open, of a file that somebody names: what libcups reads of a compressed file that is
// cut off, and ReadPPD does not, is a failure.
Expected<PPDFile> OpenPPD(const std::filesystem::path &path,
                          PPDTexts texts = PPDTexts::kUsersLanguage);

// As PPDFile::Open, with the bytes of a file, which stay known.
Expected<PPDFile> ParsePPD(std::string_view bytes);

// Writes all of them, and goes back to the beginning; false: see errno.
bool FillFile(const MemoryFile &file, std::string_view bytes);

// That a memory file could not be made or filled, for the reason in errno.
Failure NoMemoryFile();

#endif
