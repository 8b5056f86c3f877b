// Where the commands of the documents are tried: a folder like the source tree with its builds, the
// documents and queues that they name, and a home of its own.

#ifndef TESTS_DOCS_WORKPLACE_H
#define TESTS_DOCS_WORKPLACE_H

#include <string>

#include "tests/support/PrivateServer.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"

class Workplace {
 public:
  // With the queues Office, whose PPD file has numbering and which is the default one, and Laser, a
  // PostScript printer without.
  Workplace();

  // Runs a command in a shell. Places of the machine are folders of this object's; another absolute
  // path is refused, which is the test's failure.
  RunResult Run(const std::string &command) const;
  // Likewise, one that opens the dialog: Return is pressed until it ends.
  RunResult RunDialog(const std::string &command) const;

  // Until all jobs have ended, or the patience is at its end; whether they have.
  bool AwaitJobs() const;

 private:
  void Write(const std::string &name, const std::string &content) const;
  std::string InThisPlace(const std::string &command) const;
  RunOptions Options() const;

  TemporaryFolder folder_;
  PrivateServer server_;
};

#endif
