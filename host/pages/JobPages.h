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
};

struct JobPages {
  PrivateFolder folder;  // with the file; it goes with it
  std::filesystem::path file;
  int count = 0;
  bool is_changed = false;         // by the document filters: there was something to do
  std::vector<std::string> notes;  // what they have said, in English
};

// Makes them with the print system's own converters: of each file PDF, laid out as the job's
// options say (ranges, several pages on a side, order, copies, empty sides), then all of them one
// document, then what the document filters do. Blocks, on any thread; ends soon after it is
// canceled. Nothing is left behind. The failure: a program is missing or fails, a document cannot
// be read, there is no room; or a filter has passed on what it could not change.
Expected<JobPages> MakePages(const PagesRequest &request, const std::atomic<bool> &cancel);

#endif
