// A print server whose line breaks at a chosen moment.

#ifndef TESTS_SUPPORT_CUTTINGRELAY_H
#define TESTS_SUPPORT_CUTTINGRELAY_H

#include <atomic>
#include <cstddef>
#include <list>
#include <mutex>
#include <set>
#include <string>
#include <thread>

#include "tests/support/LocalPort.h"

enum class Cut {
  kNone,
  kReset,       // so many bytes of the request reach the server, then the connection is reset
  kHalfAnswer,  // the server does what it is asked; so many bytes of its answer come, then the end
  kSilence,     // after so many bytes of the request nothing comes any more, and nothing is closed
};

enum class Afterwards {
  kWhole,    // all is well
  kRefused,  // nobody listens
  kSame,     // all further requests are cut, too
};

struct CutPlan {
  Cut cut = Cut::kNone;
  int at = 0;        // the number of the request, from 0 over all connections
  size_t bytes = 0;  // a message that is no longer comes whole
  Afterwards afterwards = Afterwards::kWhole;
};

// Hands on everything between clients and the server at an address of this machine, on threads of
// its own. It takes the messages of HTTP apart only to find where each begins.
class CuttingRelay {
 public:
  explicit CuttingRelay(const std::string &server);  // "127.0.0.1:PORT"
  ~CuttingRelay();
  CuttingRelay(const CuttingRelay &) = delete;
  CuttingRelay &operator=(const CuttingRelay &) = delete;

  std::string address() const { return port_.address(); }

  // Counts from 0 anew; what was broken is whole again, for new connections.
  void Use(const CutPlan &plan);
  // How many have begun since then.
  int requests() const { return requests_; }
  // Whether the cut has been made.
  bool has_cut() const { return has_cut_; }

 private:
  struct Line;

  void TakeConnections();
  void Serve(int client);
  bool HandOnRequests(Line &line);
  bool HandOnAnswer(Line &line);
  bool Begin(Line &line);
  bool Break(Line &line);
  void OpenDoor();
  void CloseDoor();

  const int server_port_;
  LocalPort port_;

  std::mutex mutex_;  // of the following
  CutPlan plan_;
  int generation_ = 0;  // of the plan
  int door_ = -1;       // where clients come in
  bool is_broken_ = false;
  std::set<int> open_;  // the sockets of all connections

  std::atomic<int> requests_ = 0;
  std::atomic<bool> has_cut_ = false;
  std::atomic<bool> is_over_ = false;
  std::list<std::thread> serving_;
  std::thread taking_;
};

#endif
