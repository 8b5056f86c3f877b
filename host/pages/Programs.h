// Where the programs are that work on a job's pages.

#ifndef HOST_PAGES_PROGRAMS_H
#define HOST_PAGES_PROGRAMS_H

#include <filesystem>
#include <string>

#include "host/base/Expected.h"
#include "host/pages/PagesHere.h"

// A filter of the print system's own: in its folder, which CUPS_SERVERBIN names. The failure says
// which package has it.
Expected<std::filesystem::path> SystemFilter(const std::string &name);

// Beside this program (the build tree), in ../lib/cups/filter from there (where it is installed),
// in the print system's folder.
Expected<std::filesystem::path> ProgramOf(const DocumentFilter &filter);

// This program's helpers, which make PDF files and draw their pages: beside it, or in ../libexec
// from there.
Expected<std::filesystem::path> PdfHelper();
Expected<std::filesystem::path> PictureHelper();

// That the pages of a document can be made here.
Expected<void> CheckPrograms(const DocumentFilter &filter);

#endif
