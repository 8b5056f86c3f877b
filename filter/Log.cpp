#include "filter/Log.h"

#include <unistd.h>

#include <algorithm>

namespace {

// At once: lines of several programs meet in one log.
void Write(std::string line) {
  std::ranges::replace(line, '\n', ' ');
  line += '\n';
  (void)!write(STDERR_FILENO, line.data(), line.size());
}

}  // namespace

void LogDebug(const std::string &text) { Write("DEBUG: backgroundnumbers: " + text); }
void LogInfo(const std::string &text) { Write("INFO: " + text); }
void LogWarning(const std::string &text) { Write("WARNING: " + text); }
void LogError(const std::string &text) { Write("ERROR: " + text); }

void LogPage(size_t page, int copies) {
  Write("PAGE: " + std::to_string(page) + ' ' + std::to_string(copies));
}
