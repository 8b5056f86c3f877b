// The pages of a job as they will be printed, in one PDF file.

#ifndef HOST_PAGES_JOBPAGES_H
#define HOST_PAGES_JOBPAGES_H

#include <atomic>
#include <filesystem>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/base/JobOptions.h"
#include "host/pages/PagesHere.h"
#include "host/pages/PrivateFolder.h"

struct PagesRequest {
  std::vector<std::filesystem::path> files;
  std::string title;
  JobOptions options;
  PageMaking making;
  bool is_two_sided = false;  // two pages make a sheet

  bool operator==(const PagesRequest &) const = default;
};

struct JobPages {
  PrivateFolder folder;  // with the file; it goes with it
  std::filesystem::path file;
  int count = 0;
  bool is_changed = false;         // by the document filters: there was something to do
  std::vector<std::string> notes;  // what they have said, in English
};

// Makes them: LayOutPages, then ApplyFilters. Blocks, on any thread; ends soon after it is
// canceled. Nothing is left behind.
Expected<JobPages> MakePages(const PagesRequest &request, const std::atomic<bool> &cancel);

// Makes of each file PDF with the print system's own converters, laid out as the job's options say
// (ranges, several pages on a side, order, copies, empty sides), and of all of them one document in
// the folder. The failure: a program is missing or fails, a document cannot be read, there is no
// room, or no page is to be printed.
Expected<std::filesystem::path> LayOutPages(const PagesRequest &request,
                                            const PrivateFolder &folder,
                                            const std::atomic<bool> &cancel);

struct FilteredPages {
  std::filesystem::path file;
  bool is_changed = false;
  std::vector<std::string> notes;
};

// What the document filters make of it. The failure: also that one has passed on what it could not
// change.
Expected<FilteredPages> ApplyFilters(const PagesRequest &request,
                                     const std::filesystem::path &laid_out,
                                     const PrivateFolder &folder, const std::atomic<bool> &cancel);

#endif
