// Documents to print, all of black text on white paper unless they say otherwise.

#ifndef TESTS_SUPPORT_DOCUMENTS_H
#define TESTS_SUPPORT_DOCUMENTS_H

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

// A document that conforms to the document structuring conventions: each of these is what is drawn
// on a page, between save and restore. `setup` goes into the document's setup.
std::string Document(const std::vector<std::string> &pages, const std::string &setup = "");

// Pages of lines from top to bottom, headed "Page 1", "Page 2"...
std::string TextDocument(int pages);
std::string TextPdf(int pages);

// PostScript that draws a page of lines with this heading on paper of this size.
std::string TextPage(const std::string &heading, int width = 595, int height = 842);

// By their types, files in this folder: two pages of PDF and PostScript, a line of text, a PNG and
// a JPEG picture. There is nothing in the middle of their pages.
std::map<std::string, std::filesystem::path> DocumentOfEachKind(const TemporaryFolder &folder);

#endif
