// How the extension with two panels is to behave, and what it was asked.

#ifndef TESTS_SUPPORT_TWOPANELSRUN_H
#define TESTS_SUPPORT_TWOPANELSRUN_H

#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

// In force while the object lives.
class TwoPanelsRun {
 public:
  // The faults are as in TWO_PANELS_FAULT (see TwoPanels.mm).
  explicit TwoPanelsRun(const std::string &faults = "");
  ~TwoPanelsRun();
  TwoPanelsRun(const TwoPanelsRun &) = delete;
  TwoPanelsRun &operator=(const TwoPanelsRun &) = delete;

  void SetFaults(const std::string &faults) const;

  // What was called since the last time that this was asked, such as "First willShow".
  std::vector<std::string> Calls() const;

 private:
  TemporaryFolder folder_;
};

#endif
