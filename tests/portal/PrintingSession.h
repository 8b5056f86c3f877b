// Applications that print through the portal on queues of a real server.

#ifndef TESTS_PORTAL_PRINTINGSESSION_H
#define TESTS_PORTAL_PRINTINGSESSION_H

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

#include "tests/portal/Dialogs.h"
#include "tests/portal/PortalSession.h"
#include "tests/support/PrivateServer.h"

// The suite has a server with two printers that anything can be asked of: "Pdf", the default one,
// which gets PDF and whose pages are numbered on this computer, and "Office", which gets PostScript
// and numbers its pages itself.
class PrintingSession : public testing::Test {
 protected:
  static void SetUpTestSuite();
  static void TearDownTestSuite();
  static PrivateServer &server() { return *server_; }

  PrintingSession();

  // The numbers of jobs that did not exist when the test began, once there are so many.
  std::vector<int> AwaitJobs(size_t count) const;
  // What the printer got of a job, when that is complete.
  static std::string Printed(int job);

  // The dialog that is open.
  static std::string AwaitDialog() { return AwaitWindow("pdeprint"); }
  static bool IsAnyDialogOpen() { return !WindowsOf("pdeprint").empty(); }
  // Presses the key until the dialog has gone: one that has no printer yet does not print.
  static void EndDialog(const std::string &dialog, const std::string &key);
  // Has the numbers begin with 25.
  static void SwitchNumberingOn(const std::string &dialog);

 private:
  static inline PrivateServer *server_ = nullptr;
  const int last_job_;  // before the test

 protected:
  const PortalSession session_;
};

// The text on each page of a PDF file.
std::vector<std::string> TextsOfPages(const std::string &pdf);
// The numbers of two digits that stand alone on its pages, "25 26"; "-" for a page without.
std::string NumbersOnPages(const std::string &pdf);

#endif
