#include "host/pages/DocumentType.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "host/base/Localized.h"

namespace {

using namespace std::string_view_literals;

constexpr size_t kLongestBefore = 1024;  // what PDF readers allow in front of a document

struct Mark {
  std::string_view bytes;
  const char *type;
};
constexpr Mark kMarks[] = {
    {"%!"sv, "application/postscript"},
    {"\004%!"sv, "application/postscript"},
    {"\xff\xd8\xff"sv, "image/jpeg"},
    {"\x89PNG\r\n\x1a\n"sv, "image/png"},
    {"GIF87a"sv, "image/gif"},
    {"GIF89a"sv, "image/gif"},
    {"MM\0*"sv, "image/tiff"},
    {"II*\0"sv, "image/tiff"},
    {"P1\n"sv, "image/x-portable-bitmap"},
    {"P4\n"sv, "image/x-portable-bitmap"},
    {"P2\n"sv, "image/x-portable-graymap"},
    {"P5\n"sv, "image/x-portable-graymap"},
    {"P3\n"sv, "image/x-portable-pixmap"},
    {"P6\n"sv, "image/x-portable-pixmap"},
};

// Characters of any encoding that has those of ASCII, and what moves the print head.
bool IsText(std::string_view bytes) {
  return !bytes.empty() && std::ranges::all_of(bytes, [](unsigned char byte) {
    return byte >= ' ' ? byte != 0x7f : byte >= '\b' && byte <= '\r';
  });
}

}  // namespace

std::string TypeOfDocument(std::string_view beginning) {
  if (beginning.substr(0, kLongestBefore).find("%PDF-") != std::string_view::npos) return kPdf;
  for (const Mark &mark : kMarks) {
    if (beginning.starts_with(mark.bytes)) return mark.type;
  }
  // PostScript in the language of a printer's jobs.
  if (beginning.starts_with("\x1b%-12345X")) {
    return beginning.find("%!PS") == std::string_view::npos ? "" : "application/postscript";
  }
  return IsText(beginning) ? "text/plain" : "";
}

Expected<std::string> TypeOfFile(const std::filesystem::path &path) {
  const auto failure = [&path](const std::string &why) {
    return Failure{Localized("cannot print %1: %2", {path.string(), why})};
  };
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) return failure(std::strerror(errno));
  std::array<char, 4096> bytes;
  file.read(bytes.data(), bytes.size());
  const std::string type = TypeOfDocument({bytes.data(), static_cast<size_t>(file.gcount())});
  if (!type.empty()) return type;
  return failure(
      Localized("it is no PDF, PostScript, picture or text, of which pages can be made here"));
}
