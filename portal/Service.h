// The print portal's requests, from the call to the answer. It knows no bus.

#ifndef PORTAL_SERVICE_H
#define PORTAL_SERVICE_H

#include <chrono>
#include <filesystem>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <vector>

#include "portal/Child.h"
#include "portal/Commands.h"
#include "portal/Descriptor.h"
#include "portal/Mapping.h"
#include "portal/Tokens.h"

// As the portal counts them.
enum class Response : uint32_t { kDone = 0, kCanceled = 1, kFailed = 2 };

struct Reply {
  Response response = Response::kFailed;
  std::optional<JobWords> words = {};  // of a job that was accepted
  std::optional<uint32_t> token = {};  // with which it is printed
};

// A request as it comes from the bus.
struct Call {
  std::string handle;  // by which it is closed
  Caller caller;
  std::string parent = {}, title = {}, accept_label = {};
  std::function<void(const Reply &)> answer;  // called once, later
};

struct ServiceOptions {
  std::filesystem::path pdeprint = FindPdeprint();
  // For an application to hand over its document.
  std::chrono::milliseconds document_limit = std::chrono::minutes(1);
};

class Service {
 public:
  using Clock = std::chrono::steady_clock;

  // What one caller may have going on at once. Nobody can see more.
  static constexpr size_t kMostOfClient = 16;

  explicit Service(ServiceOptions options = {}) : options_(std::move(options)) {}

  // Opens the dialog for a job whose document the application has not made yet.
  void PreparePrint(Call call, const JobWords &words);
  // Prints the document: as it was accepted, where the token says so, else as the dialog says that
  // it opens. 0: no token.
  void Print(Call call, Descriptor document, uint32_t token);
  // Ends a request, which is answered as failed. One that is none of this sender's goes on.
  void Close(const std::string &handle, const std::string &sender);
  // Ends what is going on for those with this name on the bus, which have gone.
  void Forget(const std::string &name);

  // What to wait for: these become readable, or the time has come. Then Attend is called.
  std::vector<int> Ends() const;
  std::optional<Clock::time_point> NextTime() const;
  void Attend();

 private:
  struct Request;
  using Step = std::function<void(Request &, int status)>;  // of the process that has ended
  // A call at work: a process at a time, and what comes when it has ended.
  struct Request {
    Call call;
    PrivateFolder folder;
    std::optional<Child> child = {};
    Step next = {};
    std::optional<Clock::time_point> limit = {};  // then the process is killed
    bool is_closed = false;                       // nobody waits for the answer
    bool is_over = false;

    std::filesystem::path File(const char *name) const { return folder.path() / name; }
  };

  Request *Begin(Call call);
  static void End(Request &request);
  static void Answer(Request &request, const Reply &reply);
  void OpenDialog(Request &request, const std::string &queue, const std::filesystem::path &document,
                  Step next);
  void HasDocument(Request &request, const std::optional<AcceptedJob> &job, int status);
  void HasAccepted(Request &request, const JobWords &words);
  void Complain(Request &request, int reason);

  const ServiceOptions options_;
  Tokens tokens_;
  std::list<Request> requests_;
};

#endif
