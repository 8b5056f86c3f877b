#include "host/command/ParentWindow.h"

#include <charconv>
#include <cstdint>
#include <string_view>

std::optional<unsigned long> ParentWindowIn(const std::string &text) {
  constexpr std::string_view kX11 = "x11:";
  if (text.starts_with("wayland:")) return 0;
  if (!text.starts_with(kX11)) return std::nullopt;
  std::string_view digits = std::string_view(text).substr(kX11.size());
  if (digits.starts_with("0x")) digits.remove_prefix(2);
  uint32_t window = 0;
  const char *const end = digits.data() + digits.size();
  const auto [rest, error] = std::from_chars(digits.data(), end, window, 16);
  if (error != std::errc() || rest != end || window == 0) return std::nullopt;
  return window;
}

std::string WhyNoParentWindow(const std::string &text) {
  if (ParentWindowIn(text)) return "";
  return "must be x11: and the number of a window in hexadecimal digits, such as x11:1a0003c, or "
         "wayland: and a name";
}
