// A job of the print system, as filters get it.

#ifndef FILTER_JOB_H
#define FILTER_JOB_H

#include <optional>
#include <string>

struct Job {
  std::string options;
  int copies = 1;
  std::optional<std::string> file;  // none: standard input
  // From the environment.
  const char *ppd = nullptr;
  std::string type;        // what the document was before it became PDF
  std::string final_type;  // what the printer gets
};

// The exit status of the filter.
int PrintWithNumbers(const Job &job);

#endif
