// PPD files of a test's own, opened as the program opens them.

#ifndef TESTS_HOST_PPD_OPENEDPPD_H
#define TESTS_HOST_PPD_OPENEDPPD_H

#include <stdexcept>

#include "host/ppd/PPDFile.h"
#include "tests/support/TestPPD.h"

inline PPDFile OpenText(const std::string &text) {
  TemporaryFolder folder;
  Expected<PPDFile> ppd = PPDFile::Open(folder.Write("a.ppd", text));
  if (!ppd) throw std::runtime_error(ppd.message());
  return std::move(*ppd);
}

// A small PPD file with these lines.
inline PPDFile OpenLines(const std::string &lines) { return OpenText(TestPPD::Text(lines)); }

// An option with these lines between opening and closing it.
inline std::string WithOption(const std::string &keyword, const std::string &lines) {
  return "*OpenUI *" + keyword + ": PickOne\n" + lines + "*CloseUI: *" + keyword + "\n";
}

#endif
