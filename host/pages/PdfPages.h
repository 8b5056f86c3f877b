// What this program's helpers do with PDF files, in processes of their own: they may be anything.
// Each failure: the document needs a password, is damaged, or takes too long or too much room.

#ifndef HOST_PAGES_PDFPAGES_H
#define HOST_PAGES_PDFPAGES_H

#include <atomic>
#include <filesystem>
#include <vector>

#include "host/base/Expected.h"

// How many pages there are; temporary files have names that begin like that of the place.
Expected<int> CountPages(const std::filesystem::path &pdf, const std::filesystem::path &place,
                         const std::atomic<bool> &cancel);

// Makes one document of these, and answers how many pages it has. What stands in front of the first
// and behind the last, for the printer, does so again.
Expected<int> JoinPages(const std::vector<std::filesystem::path> &pdfs,
                        const std::filesystem::path &out, const std::atomic<bool> &cancel);

// Leaves out what stands around the document, for the printer.
Expected<void> TakeDocument(const std::filesystem::path &pdf, const std::filesystem::path &out,
                            const std::atomic<bool> &cancel);

// Makes a document of one page, counted from 1; the pages before it are empty there, and quickly
// made.
Expected<void> TakePage(const std::filesystem::path &pdf, int page,
                        const std::filesystem::path &out, const std::atomic<bool> &cancel);

// Draws a page, counted from 1, as large as it fits into so many pixels, into a PPM file.
struct PixelSize {
  int width = 0, height = 0;

  bool operator==(const PixelSize &) const = default;
};
Expected<void> DrawPageInto(PixelSize size, const std::filesystem::path &pdf, int page,
                            const std::filesystem::path &out, const std::atomic<bool> &cancel);

// Draws it with so many pixels to an inch, into a PNG file.
Expected<void> DrawPageAt(int dpi, const std::filesystem::path &pdf, int page,
                          const std::filesystem::path &out, const std::atomic<bool> &cancel);

#endif
