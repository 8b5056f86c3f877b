// PDF files written by hand, for what no program would write.

#ifndef TESTS_SUPPORT_RAWPDF_H
#define TESTS_SUPPORT_RAWPDF_H

#include <string>
#include <vector>

#include "tests/support/Interpreter.h"

// The object with the number 1 comes first, and is the catalog. Entries go into the trailer.
std::string PdfOfObjects(const std::vector<std::string> &objects, const std::string &trailer = "");

std::string PdfStream(const std::string &content, const std::string &entries = "");

struct RawPage {
  std::string content;  // with the font /F, Helvetica
  std::string entries = "/MediaBox [0 0 595 842]";
};

// More objects have the numbers from 10 on; `catalog` are entries of the catalog.
std::string RawPdf(const std::vector<RawPage> &pages, const std::vector<std::string> &more = {},
                   const std::string &catalog = "");

// As qpdf makes of a file with these options.
std::string ChangedByQpdf(const std::string &pdf, const std::vector<std::string> &options);

// The pages as Ghostscript shows them, of all the files, without smoothing.
std::vector<Picture> PicturesOf(const std::vector<std::string> &files, int dots_per_inch = 36);

// What pdftotext finds on all pages, the words in its order with blanks between them.
std::string TextOfPdf(const std::string &pdf);

#endif
