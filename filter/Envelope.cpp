#include "filter/Envelope.h"

#include <algorithm>

namespace {

constexpr std::string_view kLineEnds = "\r\n";
// Enough for the languages of printers.
constexpr size_t kLongestBefore = 1 << 16;
constexpr int kMostComments = 40;

bool IsPrintable(std::string_view line) {
  return std::ranges::all_of(line, [](char byte) { return byte >= ' ' && byte < 127; });
}

// Takes a line away, and answers it without its end.
std::string_view TakeLine(std::string_view &text) {
  const size_t end = std::min(text.find_first_of(kLineEnds), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  if (text.starts_with("\r\n")) text.remove_prefix(1);
  if (!text.empty()) text.remove_prefix(1);
  return line;
}

// Where the document ends. What follows its last mark goes with it if it may be a part of it: of a
// file that was changed by appending to it, and damaged.
size_t EndOf(std::string_view text) {
  constexpr std::string_view kMark = "%%EOF";
  size_t end = text.rfind(kMark);
  if (end == std::string_view::npos || text.find("startxref", end) != std::string_view::npos) {
    return text.size();
  }
  end += kMark.size();
  if (text.substr(end).starts_with('\r')) ++end;
  if (text.substr(end).starts_with('\n')) ++end;
  return end;
}

}  // namespace

Envelope EnvelopeOf(std::string_view bytes) {
  Envelope envelope;
  const size_t begin = bytes.substr(0, kLongestBefore).find("%PDF-");
  if (begin == std::string_view::npos) return envelope;
  envelope.before = bytes.substr(0, begin);
  const size_t size = EndOf(bytes.substr(begin));
  envelope.document = bytes.substr(begin, size);
  envelope.behind = bytes.substr(begin + size);

  std::string_view rest = envelope.document;
  TakeLine(rest);
  for (int lines = 0; lines < kMostComments && rest.starts_with('%'); ++lines) {
    const std::string_view line = TakeLine(rest);
    if (line == kNumberedMark.substr(0, kNumberedMark.size() - 1)) {
      envelope.was_numbered = true;
    } else if (IsPrintable(line) && line != "%%EOF") {
      envelope.comments.append(line) += '\n';
      envelope.was_laid_out |= line.starts_with("%%PDFTOPDF");
    }
  }
  return envelope;
}
