#include "tests/support/PrivateServer.h"

#include <cups/cups.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <thread>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

using Http = std::unique_ptr<http_t, decltype(&httpClose)>;
using Ipp = std::unique_ptr<ipp_t, decltype(&ippDelete)>;

// The folder for temporary files may be one that only this user can enter, while a server that root
// starts runs filters as another user; and its path may be too long for a socket.
fs::path NewFolder() {
  std::string name = "/tmp/numbering-server.XXXXXX";
  if (mkdtemp(name.data()) == nullptr || chmod(name.c_str(), 0711) != 0) std::abort();
  return name;
}

http_t *Connection(int port) {
  return httpConnect2("127.0.0.1", port, nullptr, AF_INET, HTTP_ENCRYPTION_NEVER, 1, 10000,
                      nullptr);
}

fs::path AdministratorsProgram(const std::string &name) {
  const fs::path program = fs::path("/usr/sbin") / name;
  return fs::exists(program) ? program : fs::path(name);
}

// Texts as they are, everything else as libcups writes it.
std::string Values(ipp_attribute_t *attribute) {
  const char *single = ippGetString(attribute, 0, nullptr);
  if (ippGetCount(attribute) == 1 && single != nullptr) return single;
  std::string text(ippAttributeString(attribute, nullptr, 0), '\0');
  ippAttributeString(attribute, text.data(), text.size() + 1);
  return text;
}

// The rules by which the print server checks passwords, for the whole machine.
constexpr char kRules[] = "/etc/pam.d/cups";

// Runs the rest of the command where the file stands in the place of the machine's rules.
std::vector<std::string> WithRules(const fs::path &rules) {
  std::vector<std::string> command = {"unshare", "--mount"};
  if (geteuid() != 0) {
    command.insert(command.end(), {"--user", "--map-current-user", "--keep-caps"});
  }
  command.insert(command.end(),
                 {"sh", "-c", std::string("mount --bind \"$0\" ") + kRules + " && exec \"$@\"",
                  rules.string()});
  return command;
}

}  // namespace

bool CanCheckPasswords() {
  std::vector<std::string> command = WithRules("/dev/null");
  command.push_back("true");
  return fs::exists(kRules) && RunProgram(command).status == 0;
}

PrivateServer::PrivateServer(const std::map<std::string, std::string> &passwords)
    : folder_(NewFolder()) {
  if (!passwords.empty()) WritePasswords(passwords);
  Configure();
  Start();
}

PrivateServer::~PrivateServer() {
  program_->Signal(SIGCONT);
  program_->Signal(SIGTERM);
  program_->HasEnded(2s);
  program_.reset();
  std::error_code error;
  fs::remove_all(folder_, error);
}

void PrivateServer::Configure() const {
  for (const char *name :
       {"bin/backend", "root", "cache", "state", "spool", "tmp", "printed", "home", "settings"}) {
    fs::create_directories(folder_ / name);
  }
  const auto line = [this](const std::string &name, const char *file) {
    return name + ' ' + (folder_ / file).string() + '\n';
  };
  std::ofstream(folder_ / "cups-files.conf")
      << line("ServerBin", "bin") << line("ServerRoot", "root") << line("CacheDir", "cache")
      << line("StateDir", "state") << line("RequestRoot", "spool") << line("TempDir", "tmp")
      << line("AccessLog", "access_log") << line("ErrorLog", "error_log")
      << line("PageLog", "page_log");
  WriteConfiguration("");
  fs::create_directory_symlink("/usr/lib/cups/daemon", folder_ / "bin/daemon");
  // A folder of its own, to which filters can be added.
  fs::create_directory(folder_ / "bin/filter");
  for (const fs::directory_entry &filter : fs::directory_iterator("/usr/lib/cups/filter")) {
    fs::create_symlink(filter.path(), folder_ / "bin/filter" / filter.path().filename());
  }
  fs::create_symlink("/usr/lib/cups/backend/ipp", folder_ / "bin/backend/ipp");
  // Filters may run as another user.
  fs::permissions(folder_ / "tmp", fs::perms::all | fs::perms::sticky_bit);
  // A printer that keeps what it gets. A backend that is its owner's alone runs as its owner, not
  // as the user of the filters.
  const fs::path printer = folder_ / "bin/backend/printer";
  std::ofstream(printer) << "#!/bin/sh\ncd '" << (folder_ / "printed").string() << R"(' || exit 1
case $DEVICE_URI in
  *broken) echo "ERROR: The lamp is broken" >&2; exit 1;;
  *empty)
    echo "STATE: +media-empty-error" >&2
    echo "ERROR: Put paper in" >&2
    until [ -e paper ]; do sleep 0.1; done
    echo "STATE: -media-empty-error" >&2
esac
mkdir -p "$PRINTER"
exec cat "${6:--}" >>"$PRINTER/$1"
)";
  fs::permissions(printer, fs::perms::owner_all);
}

void PrivateServer::WritePasswords(const std::map<std::string, std::string> &passwords) const {
  const fs::path check = folder_ / "check-password";
  std::ofstream program(check);
  program << "#!/bin/sh\nIFS= read -r password\ncase $PAM_USER:$password in\n";
  for (const auto &[user, password] : passwords) {
    program << '\'' << user << ':' << password << "') exit 0;;\n";
  }
  program << "esac\nexit 1\n";
  program.close();
  fs::permissions(check, fs::perms::owner_all);
  std::ofstream(folder_ / "rules") << "auth required pam_exec.so quiet expose_authtok "
                                   << check.string() << "\naccount required pam_permit.so\n";
}

void PrivateServer::WriteConfiguration(const std::string &limits) const {
  std::ofstream(folder_ / "cupsd.conf") << "Listen " << address() << "\nListen "
                                        << socket().string()
                                        << "\nDefaultAuthType "
                                        // Without one, what a client shows is not looked at.
                                        << (fs::exists(folder_ / "rules") ? "Basic" : "None") << R"(
Browsing No
WebInterface No
PreserveJobFiles Yes
LogLevel info
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  SubscriptionPrivateAccess all
  SubscriptionPrivateValues none
)" << limits << R"(
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
<Policy password>
  <Limit All>
    AuthType Basic
    Require valid-user
    Order deny,allow
  </Limit>
</Policy>
)";
}

void PrivateServer::Restrict(const std::string &operations) const {
  WriteConfiguration("<Limit " + operations +
                     ">\nAuthType Basic\nRequire valid-user\nOrder deny,allow\n</Limit>");
  program_->Signal(SIGHUP);
}

void PrivateServer::Start() {
  std::vector<std::string> command;
  if (fs::exists(folder_ / "rules")) command = WithRules(folder_ / "rules");
  // Also a test program that is killed takes it along.
  command.insert(command.end(),
                 {"setpriv", "--pdeathsig", "TERM", AdministratorsProgram("cupsd"), "-f", "-c",
                  folder_ / "cupsd.conf", "-s", folder_ / "cups-files.conf"});
  program_ = std::make_unique<RunningProgram>(command);
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (std::chrono::steady_clock::now() < deadline && !program_->HasEnded(0s)) {
    if (const int connection = port_.Connect(); connection >= 0) {
      close(connection);
      return;
    }
    std::this_thread::sleep_for(10ms);
  }
  std::cerr << "cupsd does not start: " << ContentOf(folder_ / "error_log")
            << program_->Wait(1ms).err << '\n';
  std::abort();
}

fs::path PrivateServer::socket() const { return folder_ / "socket"; }

fs::path PrivateServer::programs() const { return folder_ / "bin"; }

void PrivateServer::AddFilter(const fs::path &program) const {
  const fs::path place = programs() / "filter" / program.filename();
  fs::copy_file(program, place, fs::copy_options::overwrite_existing);
  fs::permissions(place, fs::perms(0755));
}

fs::path PrivateServer::home() const { return folder_ / "home"; }

EnvironmentChanges PrivateServer::Environment() const {
  return {{"CUPS_SERVER", address()},  {"CUPS_SERVERROOT", (folder_ / "settings").string()},
          {"HOME", home().string()},   {"CUPS_ENCRYPTION", std::nullopt},
          {"CUPS_USER", std::nullopt}, {"LPDEST", std::nullopt},
          {"PRINTER", std::nullopt}};
}

std::string PrivateServer::Run(const std::vector<std::string> &command) const {
  RunOptions options;
  options.environment = Environment();
  const RunResult result = RunProgram(command, options);
  if (result.status != 0) ADD_FAILURE() << command.front() << ": " << result.err;
  return result.out;
}

void PrivateServer::AddQueue(const TestQueue &queue) const {
  const std::string lpadmin = AdministratorsProgram("lpadmin");
  std::vector<std::string> command = {lpadmin,
                                      "-p",
                                      queue.name,
                                      "-v",
                                      queue.broken ? "printer:/broken" : "printer:/",
                                      "-D",
                                      queue.description,
                                      "-L",
                                      queue.location};
  if (!queue.ppd.empty()) command.insert(command.end(), {"-P", queue.ppd});
  for (const auto &[name, value] : queue.options) {
    command.insert(command.end(), {"-o", name + '=' + value});
  }
  command.push_back("-E");
  Run(command);
  if (!queue.stopped.empty()) StopQueue(queue.name, queue.stopped);
  if (!queue.rejecting.empty()) {
    Run({AdministratorsProgram("cupsreject"), "-r", queue.rejecting, queue.name});
  }
  if (queue.is_default) Run({lpadmin, "-d", queue.name});
}

void PrivateServer::AddTemporaryQueue(const std::string &name,
                                      const std::string &printer_uri) const {
  const Http connection(Connection(port_.number()), httpClose);
  ipp_t *request = ippNewRequest(IPP_OP_CUPS_CREATE_LOCAL_PRINTER);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, "ipp://localhost/");
  ippAddString(request, IPP_TAG_PRINTER, IPP_TAG_NAME, "printer-name", nullptr, name.c_str());
  ippAddString(request, IPP_TAG_PRINTER, IPP_TAG_URI, "device-uri", nullptr, printer_uri.c_str());
  ippDelete(cupsDoRequest(connection.get(), request, "/"));
  if (cupsLastError() > IPP_STATUS_OK_CONFLICTING) {
    ADD_FAILURE() << "no temporary queue: " << cupsLastErrorString();
  }
}

void PrivateServer::MakeQueueTemporary(const std::string &name) const {
  const Http connection(Connection(port_.number()), httpClose);
  ipp_t *request = ippNewRequest(IPP_OP_CUPS_ADD_MODIFY_PRINTER);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr,
               ("ipp://localhost/printers/" + name).c_str());
  ippAddBoolean(request, IPP_TAG_PRINTER, "printer-is-temporary", true);
  ippDelete(cupsDoRequest(connection.get(), request, "/admin/"));
  EXPECT_LE(cupsLastError(), IPP_STATUS_OK_EVENTS_COMPLETE) << cupsLastErrorString();
}

void PrivateServer::StopQueue(const std::string &name, const std::string &reason) const {
  Run({AdministratorsProgram("cupsdisable"), "-r", reason, name});
}

void PrivateServer::StartQueue(const std::string &name) const {
  Run({AdministratorsProgram("cupsenable"), name});
}

void PrivateServer::HoldJob(int job) const { Run({"lp", "-i", std::to_string(job), "-H", "hold"}); }

void PrivateServer::ReleaseJob(int job) const {
  Run({"lp", "-i", std::to_string(job), "-H", "resume"});
}

std::string PrivateServer::OutputOf(int job) const {
  const std::string uri = JobAttributes(job)["job-printer-uri"];
  return ContentOf(folder_ / "printed" / fs::path(uri).filename() / std::to_string(job));
}

std::vector<std::string> PrivateServer::DocumentsOf(int job) const {
  std::vector<std::string> documents;
  for (int number = 1;; ++number) {
    char name[32];
    snprintf(name, sizeof name, "d%05d-%03d", job, number);
    const fs::path file = folder_ / "spool" / name;
    if (!fs::exists(file)) return documents;
    documents.push_back(ContentOf(file));
  }
}

std::map<std::string, std::string> PrivateServer::JobAttributes(int job) const {
  std::map<std::string, std::string> attributes;
  const Http connection(Connection(port_.number()), httpClose);
  ipp_t *request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
  const std::string uri = "ipp://localhost/jobs/" + std::to_string(job);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.c_str());
  const Ipp answer(cupsDoRequest(connection.get(), request, "/jobs/"), ippDelete);
  for (ipp_attribute_t *attribute = ippFirstAttribute(answer.get()); attribute != nullptr;
       attribute = ippNextAttribute(answer.get())) {
    if (ippGetGroupTag(attribute) != IPP_TAG_JOB || ippGetName(attribute) == nullptr) continue;
    attributes[ippGetName(attribute)] = Values(attribute);
  }
  return attributes;
}

std::vector<int> PrivateServer::LiveJobs() const {
  const Http connection(Connection(port_.number()), httpClose);
  cups_job_t *jobs = nullptr;
  const int count = cupsGetJobs2(connection.get(), &jobs, nullptr, 0, CUPS_WHICHJOBS_ACTIVE);
  if (count < 0) ADD_FAILURE() << "no list of jobs: " << cupsLastErrorString();
  std::vector<int> numbers;
  for (int i = 0; i < count; ++i) numbers.push_back(jobs[i].id);
  cupsFreeJobs(count, jobs);
  return numbers;
}

void PrivateServer::Freeze() const { program_->Signal(SIGSTOP); }

void PrivateServer::GoOn() const { program_->Signal(SIGCONT); }

ServerEnvironment::ServerEnvironment(const PrivateServer &server) {
  for (const auto &[name, value] : server.Environment()) variables_.emplace_back(name, value);
}
