// What this program's helper does with PDF files, in a process of its own: they may be anything.

#ifndef HOST_PAGES_PDFPAGES_H
#define HOST_PAGES_PDFPAGES_H

#include <atomic>
#include <filesystem>
#include <vector>

#include "host/base/Expected.h"

// How many pages there are; temporary files have names that begin like that of the place. The
// failure: the document needs a password, or is damaged.
Expected<int> CountPages(const std::filesystem::path &pdf, const std::filesystem::path &place,
                         const std::atomic<bool> &cancel);

// Makes one document of these, and answers how many pages it has. What stands in front of the first
// and behind the last, for the printer, does so again.
Expected<int> JoinPages(const std::vector<std::filesystem::path> &pdfs,
                        const std::filesystem::path &out, const std::atomic<bool> &cancel);

#endif
