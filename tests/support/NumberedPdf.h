// PDF files with numbers, for tests of what draws them.

#ifndef TESTS_SUPPORT_NUMBEREDPDF_H
#define TESTS_SUPPORT_NUMBEREDPDF_H

#include <cstdio>
#include <cstdlib>
#include <string>

#include "numbering/pdf/NumberDocument.h"

inline numbering::Choices ChoicesWith(int start) {
  numbering::Choices choices;
  choices.on = true;
  choices.start = start;
  return choices;
}

// With numbers on all pages, over them or behind. Throws as NumberDocument.
inline std::string NumberedPdf(const std::string &pdf, bool over,
                               const numbering::Choices &choices = ChoicesWith(25)) {
  char *bytes = nullptr;
  size_t size = 0;
  std::FILE *out = open_memstream(&bytes, &size);
  try {
    numbering::NumberDocument(
        pdf, out, choices, [over](size_t) { return over; }, "");
  } catch (...) {
    std::fclose(out);
    std::free(bytes);
    throw;
  }
  std::fclose(out);
  std::string numbered(bytes, size);
  std::free(bytes);
  return numbered;
}

#endif
