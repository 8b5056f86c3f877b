// A printer on the network that needs no driver.

#ifndef TESTS_SUPPORT_DRIVERLESSPRINTER_H
#define TESTS_SUPPORT_DRIVERLESSPRINTER_H

#include <memory>
#include <string>
#include <vector>

#include "tests/support/LocalPort.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"

// ippeveprinter, listening on a free port; it runs with the object. It has A4 paper, prints in
// color with 75 dots per inch, on both sides, and keeps what it gets. What ends the test program is
// a printer that does not start.
class DriverlessPrinter {
 public:
  // It takes documents of these types.
  explicit DriverlessPrinter(const std::vector<std::string> &types);

  std::string uri() const;

  // What it got of the job with this title, of small letters, digits and hyphens.
  std::string Got(const std::string &title) const;

 private:
  TemporaryFolder folder_;
  LocalPort port_;
  std::unique_ptr<RunningProgram> program_;
};

#endif
