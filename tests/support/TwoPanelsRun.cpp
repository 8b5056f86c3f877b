#include "tests/support/TwoPanelsRun.h"

#include <cstdlib>
#include <sstream>

TwoPanelsRun::TwoPanelsRun(const std::string &faults) {
  setenv("TWO_PANELS_LOG", (folder_.path() / "log").c_str(), 1);
  SetFaults(faults);
}

TwoPanelsRun::~TwoPanelsRun() {
  unsetenv("TWO_PANELS_LOG");
  unsetenv("TWO_PANELS_FAULT");
}

void TwoPanelsRun::SetFaults(const std::string &faults) const {
  setenv("TWO_PANELS_FAULT", faults.c_str(), 1);
}

std::vector<std::string> TwoPanelsRun::Calls() const {
  const std::filesystem::path log = folder_.path() / "log";
  std::istringstream lines(ContentOf(log));
  std::vector<std::string> calls;
  for (std::string line; std::getline(lines, line);) calls.push_back(line);
  std::filesystem::remove(log);
  return calls;
}
