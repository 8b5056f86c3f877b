// Keeping the pages of a job as files.

#ifndef HOST_PAGES_SAVEPAGES_H
#define HOST_PAGES_SAVEPAGES_H

#include <atomic>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/base/WholeFile.h"
#include "host/pages/JobPages.h"

struct SaveRequest {
  PagesRequest pages;
  std::filesystem::path out;
  std::optional<int> dpi;  // a PNG file a page, so large; none: one PDF file
  Existing existing = Existing::kKept;
};

struct SavingProgress {
  std::atomic<bool> cancel = false;
  std::atomic<int> pages = 0;  // 0: they are being made
  std::atomic<int> drawn = 0;  // of them, as pictures
};

struct SavedPages {
  std::vector<std::filesystem::path> files;
  int count = 0;
  std::vector<std::string> notes;  // of document filters, in English
};

// Writes what would be printed. A PNG file has the number of its page before its ending,
// "page-1.png". Each file is written whole or not at all; nothing is written before all is made,
// and where one cannot be written, the others are none.
// Blocks, on any thread; ends soon after it is canceled. The failure: as that of MakePages, or a
// file cannot be written, or something is there that is to be kept.
Expected<SavedPages> SavePages(const SaveRequest &request, SavingProgress &progress);

// What something that is in the way is told of; the first one.
Failure IsThereAlready(const std::filesystem::path &path);

#endif
