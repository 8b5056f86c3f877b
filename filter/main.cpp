// A filter of the print system that draws a number on every page of a PDF document (filter(7)).

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iostream>

#include "filter/Job.h"

namespace {

std::string Variable(const char *name) {
  const char *value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

int main(int argc, char **argv) {
  if (argc < 6 || argc > 7) {
    std::cerr << "ERROR: usage: backgroundnumbers JOB USER TITLE COPIES OPTIONS [FILE]\n";
    return 1;
  }
  // A reader that has gone is no fault of this program's. What it has left behind where the job is
  // canceled (SIGTERM) goes by itself.
  std::signal(SIGPIPE, SIG_IGN);
  Job job;
  job.copies = std::max(1, std::atoi(argv[4]));
  job.options = argv[5];
  if (argc == 7) job.file = argv[6];
  job.ppd = std::getenv("PPD");
  job.type = Variable("CONTENT_TYPE");
  job.final_type = Variable("FINAL_CONTENT_TYPE");
  return PrintWithNumbers(job);
}
