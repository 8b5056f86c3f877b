#include "filter/HidingPages.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>

#include "filter/Apart.h"
#include "filter/Descriptor.h"
#include "filter/Log.h"
#include "numbering/Literal.h"

namespace {

constexpr int kPageLimit = 20000;  // milliseconds
// A document that ends the looking so often gets no more of it.
constexpr int kMostAttempts = 8;
constexpr int kLibrarysEnd = 1;  // where it finds no memory

std::string Looker() {
  std::error_code error;
  const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
  return (self.parent_path() / "backgroundnumbers-look").string();
}

class Look {
 public:
  Look(int file, std::vector<std::string> arguments) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    answers_ = Descriptor(ends[0]);
    const Descriptor out(ends[1]);
    std::vector<char *> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string &argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const pid_t parent = getpid();
    child_ = fork();
    if (child_ != 0) return;
    EndWithParent(parent);
    dup2(file, STDIN_FILENO);
    dup2(out.get(), STDOUT_FILENO);
    execv(pointers[0], pointers.data());
    LogWarning(arguments[0] + " cannot be run: " + SystemReason());
    _exit(2);
  }
  ~Look() {
    if (child_ <= 0) return;
    kill(child_, SIGKILL);
    while (waitpid(child_, nullptr, 0) < 0 && errno == EINTR) continue;
  }
  Look(const Look &) = delete;
  Look &operator=(const Look &) = delete;

  // Adds what it answers. Whether it came to its end.
  bool Take(std::vector<bool> &hiding) {
    if (child_ <= 0) return false;
    for (;;) {
      pollfd ready = {answers_.get(), POLLIN, 0};
      const int count = poll(&ready, 1, kPageLimit);
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return false;
      std::array<char, 4096> answers;
      const ssize_t got = read(answers_.get(), answers.data(), answers.size());
      if (got < 0 && errno == EINTR) continue;
      if (got <= 0) return HasSucceeded();
      for (ssize_t at = 0; at < got; ++at)
        hiding.push_back(answers[static_cast<size_t>(at)] == '#');
    }
  }

  // Whether it can be expected to do better with the next page.
  bool MayGoOn() const { return may_go_on_; }

 private:
  bool HasSucceeded() {
    int status = 0;
    while (waitpid(child_, &status, 0) < 0 && errno == EINTR) continue;
    child_ = -1;
    may_go_on_ = WIFSIGNALED(status) || WEXITSTATUS(status) == kLibrarysEnd;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

  Descriptor answers_;
  pid_t child_ = -1;
  bool may_go_on_ = true;
};

}  // namespace

LookedAt HidingPages(int file, size_t begin, size_t size, const numbering::Choices &choices) {
  LookedAt looked_at;
  std::vector<bool> &hiding = looked_at.hiding;
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    Look look(file,
              {Looker(), std::to_string(begin), std::to_string(size), std::to_string(hiding.size()),
               std::to_string(choices.start), numbering::Literal(choices.size)});
    if (look.Take(hiding)) break;
    looked_at.complaints.push_back("page " + std::to_string(hiding.size() + 1) +
                                   " cannot be looked at; its number goes over it");
    if (!look.MayGoOn()) break;
    hiding.push_back(true);
  }
  return looked_at;
}
