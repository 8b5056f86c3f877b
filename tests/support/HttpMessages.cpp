#include "tests/support/HttpMessages.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

// Answers true for the beginning of the next message.
bool HttpMessages::Enter(Part part, size_t rest) {
  part_ = part;
  rest_ = rest;
  text_.clear();
  return part == Part::kHead;
}

bool HttpMessages::Take(char byte) {
  if (part_ == Part::kBody || part_ == Part::kChunk) {
    if (--rest_ > 0) return false;
    return Enter(part_ == Part::kBody ? Part::kHead : Part::kChunkSize);
  }
  text_ += byte;
  if (part_ == Part::kHead) return text_.ends_with("\r\n\r\n") && EndHead();
  return text_.ends_with("\r\n") && TakeLine();
}

bool HttpMessages::TakeLine() {
  if (part_ == Part::kTrailer) {
    if (text_ == "\r\n") return Enter(Part::kHead);
    text_.clear();
    return false;
  }
  const size_t size = std::strtoul(text_.c_str(), nullptr, 16);
  if (size == 0) return Enter(Part::kTrailer);
  return Enter(Part::kChunk, size + 2);  // its end of line
}

bool HttpMessages::EndHead() {
  std::ranges::transform(text_, text_.begin(), [](unsigned char character) {
    return static_cast<char>(std::tolower(character));
  });
  if (text_.find("\r\ntransfer-encoding: chunked") != std::string::npos) {
    return Enter(Part::kChunkSize);
  }
  const std::string field = "\r\ncontent-length:";
  const size_t found = text_.find(field);
  const size_t length =
      found == std::string::npos ? 0 : std::strtoul(&text_[found + field.size()], nullptr, 10);
  return Enter(length == 0 ? Part::kHead : Part::kBody, length);
}
