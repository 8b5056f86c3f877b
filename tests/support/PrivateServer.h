// A real print server of a test's own.

#ifndef TESTS_SUPPORT_PRIVATESERVER_H
#define TESTS_SUPPORT_PRIVATESERVER_H

#include <chrono>
#include <filesystem>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/LocalPort.h"
#include "tests/support/RunProgram.h"

struct TestQueue {
  std::string name;
  std::filesystem::path ppd = {};  // empty: none
  std::string description = {};
  std::string location = {};
  std::map<std::string, std::string> options = {};  // the server's defaults
  std::string stopped = {};                         // why; empty: it is not
  std::string rejecting = {};                       // why; empty: it accepts jobs
  bool is_default = false;
  bool broken = false;  // the printer says so and takes nothing
};

// cupsd, listening on a free port of 127.0.0.1, with everything that it writes in a folder of its
// own; it runs with the object. Its filters are the real ones; its printers keep what
// they get. Every user may
// do everything. What ends the test program is a server that does not start.
class PrivateServer {
 public:
  // The passwords of these users are right, and no others, whatever accounts the machine has; it
  // must be one that CanCheckPasswords.
  explicit PrivateServer(const std::map<std::string, std::string> &passwords = {});
  ~PrivateServer();
  PrivateServer(const PrivateServer &) = delete;
  PrivateServer &operator=(const PrivateServer &) = delete;

  std::string address() const { return port_.address(); }  // "127.0.0.1:PORT"
  std::filesystem::path socket() const;                    // another address of its

  // For programs: this server, and neither the machine's nor the user's settings of libcups. HOME
  // is a folder of this object's.
  EnvironmentChanges Environment() const;
  std::filesystem::path home() const;
  // A command of the print system's, lpadmin for instance, in this environment; its failure is the
  // test's.
  std::string Run(const std::vector<std::string> &command) const;

  // The folder of its programs (ServerBin), its own but for what links lead to.
  std::filesystem::path programs() const;
  // Gives it a copy of this filter, in the place of an earlier one.
  void AddFilter(const std::filesystem::path &program) const;

  void AddQueue(const TestQueue &queue) const;
  // What the print system makes of a printer that it finds on the network, for a short time; it
  // asks the printer for its abilities in the background.
  void AddTemporaryQueue(const std::string &name, const std::string &printer_uri) const;
  // Makes of a queue what would be gone some time after its use.
  void MakeQueueTemporary(const std::string &name) const;
  void StopQueue(const std::string &name, const std::string &reason) const;
  void StartQueue(const std::string &name) const;

  // What the printer got of a job.
  std::string OutputOf(int job) const;
  // The documents of a job, as the server received them.
  std::vector<std::string> DocumentsOf(int job) const;
  // All that the server tells about a job, several values with commas between them; empty: there is
  // no such job.
  std::map<std::string, std::string> JobAttributes(int job) const;
  // The numbers of all jobs that have not ended.
  std::vector<int> LiveJobs() const;
  void HoldJob(int job) const;
  void ReleaseJob(int job) const;

  // From some moment on, these operations (names of the protocol, blanks between them) take a
  // password. A queue of the operation policy "password" takes one for all of them.
  void Restrict(const std::string &operations) const;

  // It takes connections and answers nothing until it goes on.
  void Freeze() const;
  void GoOn() const;

 private:
  void Configure() const;
  void WritePasswords(const std::map<std::string, std::string> &passwords) const;
  void WriteConfiguration(const std::string &limits) const;
  void Start();

  std::filesystem::path folder_;
  LocalPort port_;
  std::unique_ptr<RunningProgram> program_;
};

// Whether a server's passwords can be those of a test: in a place of its own, that server alone
// sees other rules for checking them than the machine has.
bool CanCheckPasswords();

// This process's environment is the server's for as long as the object lives. libcups reads it once
// in each thread.
class ServerEnvironment {
 public:
  explicit ServerEnvironment(const PrivateServer &server);

 private:
  std::list<EnvironmentVariable> variables_;
};

#endif
