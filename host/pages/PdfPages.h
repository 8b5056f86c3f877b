// What this program's helpers do with PDF files, in processes of their own: they may be anything.
// Each failure: the document needs a password, is damaged, or takes too long or too much room; of
// CountPages also that it does not allow printing.

#ifndef HOST_PAGES_PDFPAGES_H
#define HOST_PAGES_PDFPAGES_H

#include <atomic>
#include <filesystem>
#include <optional>
#include <vector>

#include "host/base/Expected.h"
#include "host/pages/ChildProgram.h"

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

struct PixelSize {
  int width = 0, height = 0;

  bool operator==(const PixelSize &) const = default;
};

// How large a page is drawn: as fits into so many pixels, or with so many to an inch.
struct DrawingSize {
  PixelSize room;
  int dpi = 0;  // 0: as it fits

  bool operator==(const DrawingSize &) const = default;
};

// Draws pages. The program that will draw the next one can be there before it: it takes longer to
// begin than to draw.
class PageDrawer {
 public:
  // Of the next page.
  void Begin();

  // Nothing is left running.
  void End() { program_.reset(); }

  // Draws a page, counted from 1, into a PNG or PPM file, as its name ends.
  Expected<void> Draw(const DrawingSize &size, const std::filesystem::path &pdf, int page,
                      const std::filesystem::path &out, const std::atomic<bool> &cancel);

 private:
  std::optional<RunningChild> program_;
};

#endif
