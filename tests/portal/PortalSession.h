// A session's bus of a test's own, with the real portal and the service on it.

#ifndef TESTS_PORTAL_PORTALSESSION_H
#define TESTS_PORTAL_PORTALSESSION_H

#include <memory>
#include <string>

#include "portal/bus/Handles.h"
#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"

class PortalSession {
 public:
  // Programs that the bus starts have these changes to their environment, beside what makes them
  // look nowhere but in this session's folders.
  explicit PortalSession(const EnvironmentChanges &changes = {});
  PortalSession(const PortalSession &) = delete;
  PortalSession &operator=(const PortalSession &) = delete;

  std::string address() const { return "unix:path=" + (folder_.path() / "bus").string(); }

  // For programs on the bus.
  EnvironmentChanges Environment() const;

  // The process of the service; 0: the bus has not started it.
  pid_t Service() const;
  // The processes that the service has started for its requests.
  std::vector<pid_t> Children() const;

  // What applications read and write there: settings, desktop files.
  std::filesystem::path data() const { return folder_.path() / "data"; }

 private:
  TemporaryFolder folder_;
  EnvironmentChanges environment_;
  std::unique_ptr<RunningProgram> bus_;
};

// A connection of its own; one that cannot be made is the test's failure.
Connection ConnectTo(const std::string &address);

// Whether a process is there, and no mere remnant of one.
bool IsRunning(pid_t process);

#endif
