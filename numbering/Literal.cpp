#include "numbering/Literal.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace numbering {

namespace {

// No value of a page is beyond what PDF's integers hold; where one is, the page is broken anyway.
constexpr double kLargest = 2147483647;

// Without std::to_chars, which older releases of macOS do not have for these.
std::string_view Write(std::array<char, 32> &buffer, double value, int decimals) {
  if (!std::isfinite(value)) value = 0;
  value = std::fmin(std::fmax(value, -kLargest), kLargest);
  for (int i = 0; i < decimals; ++i) value *= 10;
  const long long rounded = std::llrint(value);
  unsigned long long rest = static_cast<unsigned long long>(std::llabs(rounded));
  char *const end = buffer.data() + buffer.size();
  char *begin = end;
  for (int i = 0; i < decimals; ++i, rest /= 10) {
    if (rest % 10 != 0 || begin != end) *--begin = static_cast<char>('0' + rest % 10);
  }
  if (begin != end) *--begin = '.';
  for (; rest != 0; rest /= 10) *--begin = static_cast<char>('0' + rest % 10);
  if (begin == end) return "0";
  if (rounded < 0) *--begin = '-';
  return {begin, end};
}

}  // namespace

void AppendLiteral(std::string &text, double value, int decimals) {
  std::array<char, 32> buffer;
  text += Write(buffer, value, decimals);
  text += ' ';
}

std::string Literal(double value, int decimals) {
  std::array<char, 32> buffer;
  return std::string(Write(buffer, value, decimals));
}

}  // namespace numbering
