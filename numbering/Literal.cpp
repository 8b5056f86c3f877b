#include "numbering/Literal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace numbering {

namespace {

// No value of a page is beyond what PDF's integers hold; where one is, the page is broken anyway.
constexpr double kLargest = 2147483647;

std::string_view Write(std::array<char, 32> &buffer, double value, int decimals) {
  if (!std::isfinite(value)) value = 0;
  value = std::fmin(std::fmax(value, -kLargest), kLargest);
  char *begin = buffer.data() + 1;  // one place for a sign, where a leading zero goes
  char *end =
      std::to_chars(begin, buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals)
          .ptr;
  if (decimals > 0) {
    while (end[-1] == '0') --end;
    if (end[-1] == '.') --end;
  }
  const bool negative = *begin == '-';
  char *digits = begin + (negative ? 1 : 0);
  if (*digits == '0' && end - digits > 1) {
    ++digits;
    if (negative) *(digits - 1) = '-';
  }
  if (*digits == '0') return "0";  // never -0
  return {negative ? digits - 1 : digits, end};
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
