#include "host/dialog/UriList.h"

#include <strings.h>

#include <charconv>
#include <optional>
#include <utility>

#include "host/base/Text.h"

namespace {

bool EqualsIgnoringCase(std::string_view one, std::string_view other) {
  return one.size() == other.size() && strncasecmp(one.data(), other.data(), one.size()) == 0;
}

// No value: what is escaped is no byte of a path.
std::optional<std::string> Unescaped(std::string_view text) {
  std::string plain;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '%') {
      plain += text[at];
      continue;
    }
    if (at + 2 >= text.size()) return std::nullopt;
    unsigned char byte = 0;
    const char *const end = text.data() + at + 3;
    if (std::from_chars(text.data() + at + 1, end, byte, 16).ptr != end || byte == 0) {
      return std::nullopt;
    }
    plain += static_cast<char>(byte);
    at += 2;
  }
  return plain;
}

// No value: it names no file of this computer.
std::optional<std::string> PathIn(std::string_view uri, std::string_view host) {
  constexpr std::string_view kScheme = "file:";
  if (!EqualsIgnoringCase(uri.substr(0, kScheme.size()), kScheme)) return std::nullopt;
  uri.remove_prefix(kScheme.size());
  if (uri.starts_with("//")) {
    uri.remove_prefix(2);
    const std::string_view computer = uri.substr(0, uri.find('/'));
    if (!computer.empty() && !EqualsIgnoringCase(computer, "localhost") &&
        !EqualsIgnoringCase(computer, host)) {
      return std::nullopt;
    }
    uri.remove_prefix(computer.size());
  }
  if (!uri.starts_with('/')) return std::nullopt;
  return Unescaped(uri);
}

}  // namespace

ListedFiles FilesOfUriList(std::string_view list, std::string_view host) {
  ListedFiles listed;
  while (!list.empty()) {
    const size_t end = list.find('\n');
    const std::string_view line = Trimmed(list.substr(0, end));
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    if (line.empty() || line.starts_with('#')) continue;
    if (std::optional<std::string> path = PathIn(line, host)) {
      listed.files.emplace_back(std::move(*path));
    } else {
      listed.others.emplace_back(line);
    }
  }
  return listed;
}
