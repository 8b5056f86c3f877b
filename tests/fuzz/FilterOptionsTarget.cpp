#include <fcntl.h>
#include <unistd.h>

#include "filter/JobChoices.h"
#include "tests/fuzz/Targets.h"

namespace fuzz {

namespace {

// What is wrong with the options goes into the log, which nobody reads here.
class WithoutLog {
 public:
  WithoutLog() : log_(dup(STDERR_FILENO)) {
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
  }
  ~WithoutLog() {
    dup2(log_, STDERR_FILENO);
    close(log_);
  }
  WithoutLog(const WithoutLog &) = delete;
  WithoutLog &operator=(const WithoutLog &) = delete;

 private:
  int log_;
};

}  // namespace

std::string TryFilterOptions(std::string_view options) {
  const WithoutLog without_log;
  const numbering::Choices choices = JobChoices(std::string(options).c_str(), nullptr);
  if (choices.start < numbering::kSmallestStart || choices.start > numbering::kLargestStart) {
    return "the first number is " + std::to_string(choices.start);
  }
  return choices.size > 0 && choices.size <= 1 && choices.density > 0 && choices.density <= 1
             ? ""
             : "a size or a density that nobody can choose";
}

}  // namespace fuzz
