// Inputs that are lines.

#ifndef TESTS_FUZZ_LINES_H
#define TESTS_FUZZ_LINES_H

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

// The lines, without their ends; behind the last end begins no line.
inline std::vector<std::string> LinesOfInput(std::string_view input) {
  std::vector<std::string> lines;
  while (!input.empty()) {
    const size_t end = std::min(input.find('\n'), input.size());
    lines.emplace_back(input.substr(0, end));
    input.remove_prefix(std::min(end + 1, input.size()));
  }
  return lines;
}

}  // namespace fuzz

#endif
