#include "tests/support/CuttingRelay.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "tests/support/HttpMessages.h"

using namespace std::chrono_literals;

namespace {

constexpr std::string_view kInterim = "HTTP/1.1 100 Continue\r\n\r\n";

sockaddr_in Loopback(int port) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

const sockaddr *Generic(const sockaddr_in &address) {
  return reinterpret_cast<const sockaddr *>(&address);
}

int PortIn(const std::string &address) { return std::atoi(&address[address.find(':') + 1]); }

bool SendAll(int socket, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<size_t>(sent));
  }
  return true;
}

// At the end of the connection: none.
std::string Received(int socket) {
  std::array<char, 16384> bytes;
  const ssize_t count = recv(socket, bytes.data(), bytes.size(), 0);
  return {bytes.data(), static_cast<size_t>(std::max<ssize_t>(count, 0))};
}

// Closing the socket tells the other side that the connection is broken, not that it has ended.
void ResetWhenClosed(int socket) {
  const linger at_once = {1, 0};
  setsockopt(socket, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
}

}  // namespace

// One client's connection and the one to the server that belongs to it.
struct CuttingRelay::Line {
  int client;
  int server;
  HttpMessages requests = {};
  CutPlan cut = {};  // of the request that is on its way or was answered last
  int generation = 0;
  size_t passed = 0;  // bytes of the message that is to be cut
  bool is_answer_due = false;
};

CuttingRelay::CuttingRelay(const std::string &server) : server_port_(PortIn(server)) {
  OpenDoor();
  taking_ = std::thread([this] { TakeConnections(); });
}

CuttingRelay::~CuttingRelay() {
  is_over_ = true;
  taking_.join();
  {
    const std::scoped_lock lock(mutex_);
    for (const int socket : open_) shutdown(socket, SHUT_RDWR);
  }
  for (std::thread &thread : serving_) thread.join();
  CloseDoor();
}

void CuttingRelay::Use(const CutPlan &plan) {
  const std::scoped_lock lock(mutex_);
  plan_ = plan;
  ++generation_;
  is_broken_ = false;
  requests_ = 0;
  has_cut_ = false;
  if (door_ < 0) OpenDoor();
}

void CuttingRelay::OpenDoor() {
  door_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  const int yes = 1;
  setsockopt(door_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  const sockaddr_in address = Loopback(port_.number());
  if (bind(door_, Generic(address), sizeof address) == 0 && listen(door_, SOMAXCONN) == 0) return;
  std::cerr << "cannot listen at " << port_.address() << '\n';
  std::abort();
}

void CuttingRelay::CloseDoor() {
  if (door_ >= 0) close(door_);
  door_ = -1;
}

void CuttingRelay::TakeConnections() {
  while (!is_over_) {
    int client = -1;
    {
      const std::scoped_lock lock(mutex_);
      if (door_ >= 0) client = accept4(door_, nullptr, nullptr, SOCK_CLOEXEC);
      if (client >= 0) open_.insert(client);
    }
    if (client < 0) {
      std::this_thread::sleep_for(1ms);
    } else {
      serving_.emplace_back([this, client] { Serve(client); });
    }
  }
}

void CuttingRelay::Serve(int client) {
  Line line{.client = client, .server = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
  const sockaddr_in address = Loopback(server_port_);
  {
    const std::scoped_lock lock(mutex_);
    open_.insert(line.server);
  }
  if (connect(line.server, Generic(address), sizeof address) == 0) {
    std::array<pollfd, 2> sides = {{{line.client, POLLIN, 0}, {line.server, POLLIN, 0}}};
    while (!is_over_ && poll(sides.data(), sides.size(), -1) >= 0) {
      // The answer first: the client may only go on after it.
      if (sides[1].revents != 0 && !HandOnAnswer(line)) break;
      if (sides[0].revents != 0 && !HandOnRequests(line)) break;
    }
  }
  const std::scoped_lock lock(mutex_);
  for (const int socket : {line.client, line.server}) {
    open_.erase(socket);
    close(socket);
  }
}

// A request begins; false: its connection is of no use any more.
bool CuttingRelay::Begin(Line &line) {
  const std::scoped_lock lock(mutex_);
  if (is_broken_) return false;
  const int number = requests_++;
  const bool is_cut =
      plan_.afterwards == Afterwards::kSame ? number >= plan_.at : number == plan_.at;
  line.cut = is_cut ? plan_ : CutPlan();
  line.generation = generation_;
  line.passed = 0;
  line.is_answer_due = false;
  return true;
}

bool CuttingRelay::HandOnRequests(Line &line) {
  const std::string bytes = Received(line.client);
  if (bytes.empty()) return false;
  size_t handed_on = 0;
  for (size_t at = 0; at < bytes.size(); ++at) {
    if (line.requests.IsBetween() && !Begin(line)) return false;
    const bool cuts = line.cut.cut == Cut::kReset || line.cut.cut == Cut::kSilence;
    if (cuts && line.passed++ == line.cut.bytes) {
      return SendAll(line.server, std::string_view(bytes).substr(0, at)) && Break(line);
    }
    line.is_answer_due = line.requests.Take(bytes[at]);
    handed_on = at + 1;
  }
  if (line.is_answer_due) line.passed = 0;
  return SendAll(line.server, std::string_view(bytes).substr(0, handed_on));
}

bool CuttingRelay::HandOnAnswer(Line &line) {
  std::string bytes = Received(line.server);
  if (bytes.empty()) return false;
  if (line.cut.cut != Cut::kHalfAnswer || !line.is_answer_due) return SendAll(line.client, bytes);
  if (line.passed == 0 && bytes.starts_with(kInterim)) {
    if (!SendAll(line.client, kInterim)) return false;
    bytes.erase(0, kInterim.size());
  }
  const size_t let_through = std::min(bytes.size(), line.cut.bytes - line.passed);
  line.passed += let_through;
  if (!SendAll(line.client, std::string_view(bytes).substr(0, let_through))) return false;
  return let_through == bytes.size() || Break(line);
}

// Always false: the connection ends.
bool CuttingRelay::Break(Line &line) {
  {
    const std::scoped_lock lock(mutex_);
    if (line.generation != generation_) return false;
    is_broken_ = line.cut.afterwards == Afterwards::kRefused;
    if (is_broken_) CloseDoor();
    has_cut_ = true;
  }
  if (line.cut.cut == Cut::kReset) ResetWhenClosed(line.client);
  if (line.cut.cut != Cut::kSilence) return false;
  const auto is_useless = [&] {
    const std::scoped_lock lock(mutex_);
    return is_over_ || line.generation != generation_;
  };
  pollfd end = {line.client, POLLRDHUP, 0};
  while (!is_useless() && poll(&end, 1, 10) == 0) continue;
  return false;
}
