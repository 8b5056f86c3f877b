// A PDF file with numbers, of one without.

#ifndef NUMBERING_PDF_NUMBERDOCUMENT_H
#define NUMBERING_PDF_NUMBERDOCUMENT_H

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "numbering/Choices.h"

namespace numbering {

struct DocumentNumbers {
  size_t pages = 0;
  std::vector<std::string> failures;  // of pages that have no number: "page 3: why"
};

// Whether the number of a page, counted from 0, goes over it.
using IsOver = std::function<bool(size_t page)>;

// Writes a PDF file with numbers; comments are lines, each with its end, that follow
// its first. Throws what is derived from std::exception where the file cannot be read, needs a
// password, or cannot be written.
DocumentNumbers NumberDocument(std::string_view file, std::FILE *out, const Choices &choices,
                               const IsOver &is_over, const std::string &comments);

// Throws as above.
size_t PagesOfDocument(std::string_view file);

}  // namespace numbering

#endif
