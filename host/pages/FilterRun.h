// Filters of the print system, run here.

#ifndef HOST_PAGES_FILTERRUN_H
#define HOST_PAGES_FILTERRUN_H

#include <atomic>
#include <filesystem>
#include <string>
#include <vector>

#include "host/base/Expected.h"
#include "host/base/JobOptions.h"

// What a filter does: a step of a document on its way.
struct FilterStep {
  std::filesystem::path program;
  std::string from, to;  // MIME types
  std::filesystem::path in, out;
  std::filesystem::path ppd;
  std::string title;
  JobOptions options;  // with the copies that it is to make
};

// What it has said, in the words of its log.
struct FilterWords {
  std::vector<std::string> warnings;  // and errors
};

// Runs it; temporary files are made beside the document that comes out, which may be empty. The
// failure: it ended otherwise than well, took too long, or was canceled.
Expected<FilterWords> RunFilter(const FilterStep &step, const std::atomic<bool> &cancel);

#endif
