// The filter at work.

#ifndef TESTS_FILTER_FILTERRUN_H
#define TESTS_FILTER_FILTERRUN_H

#include <string>

#include "tests/support/RunProgram.h"

inline constexpr char kFilter[] = BINARY_DIRECTORY "/backgroundnumbers";
// Three numbers from 25 on.
inline constexpr char kOn[] = "VQBackgroundNumbering=On VQStartNumber=25";

struct Filtered {
  int status;
  std::string out, log;
  bool Logged(const std::string &text) const { return log.find(text) != std::string::npos; }
};

// Runs it on this document, through a pipe, in an environment changed like this.
Filtered Filter(const std::string &document, const std::string &options = kOn,
                const EnvironmentChanges &environment = {});

// The same with the document as a file.
Filtered FilterFile(const std::string &document, const std::string &options = kOn,
                    const EnvironmentChanges &environment = {});

// Pages "Page 1", "Page 2"...
std::string SmallPdf(int pages = 3);

#endif
