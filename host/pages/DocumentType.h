// What kind of document a file is.

#ifndef HOST_PAGES_DOCUMENTTYPE_H
#define HOST_PAGES_DOCUMENTTYPE_H

#include <filesystem>
#include <string>
#include <string_view>

#include "host/base/Expected.h"

inline constexpr char kPdf[] = "application/pdf";

// Its MIME type by how it begins, as the print system's tables name it; empty: unknown.
std::string TypeOfDocument(std::string_view beginning);

// The same of a file. The failure: it cannot be read, or is of no kind that is known here.
Expected<std::string> TypeOfFile(const std::filesystem::path &path);

#endif
