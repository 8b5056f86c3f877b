#include "numbering/pdf/ContentScanner.h"

#include <algorithm>
#include <utility>

namespace numbering {

namespace {

constexpr size_t kLongestOperator = 3;
// Of what follows the end of an image: pictures rarely have so much that looks like text.
constexpr size_t kEnoughText = 12;

bool IsBlank(char byte) {
  return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t' || byte == '\f' ||
         byte == '\0';
}

bool IsDelimiter(char byte) {
  return IsBlank(byte) || std::string_view("()<>[]{}/%").find(byte) != std::string_view::npos;
}

bool IsText(char byte) {
  return (byte >= ' ' && byte < 127) || byte == '\n' || byte == '\r' || byte == '\t';
}

void Append(std::string &text, size_t count, std::string_view what) {
  for (; count > 0; --count) text += what;
}

}  // namespace

ContentScanner::ContentScanner(std::function<void(size_t at)> excess_restore)
    : excess_restore_(std::move(excess_restore)) {}

void ContentScanner::Take(std::string_view part) {
  for (const char byte : part) {
    Byte(byte);
    ++size_;
  }
}

void ContentScanner::EndStream() {
  Take("\n");
  if (within_ == Within::AfterImage) EndImage();
}

void ContentScanner::Byte(char byte) {
  switch (within_) {
    case Within::Nothing:
      return Begin(byte);
    case Within::Word:
    case Within::Name:
      if (!IsDelimiter(byte)) {
        if (word_.size() <= kLongestOperator) word_ += byte;
        return;
      }
      if (within_ == Within::Word) {
        EndWord();
        // The blank after ID belongs to neither.
        if (within_ == Within::Image) return;
      }
      within_ = Within::Nothing;
      return Begin(byte);
    case Within::String:
      return InString(byte);
    case Within::Hex:
      if (byte == '<' && hex_began_) {
        within_ = Within::Nothing;
        Bracket(2);
      } else if (byte == '>') {
        within_ = Within::Nothing;
      }
      hex_began_ = false;
      return;
    case Within::Comment:
      if (byte == '\n' || byte == '\r') within_ = Within::Nothing;
      return;
    case Within::Image:
      return InImage(byte);
    case Within::AfterImage:
      return AfterImage(byte);
  }
}

void ContentScanner::Open(Within within) {
  within_ = within;
  begin_ = size_;
  word_.clear();
}

void ContentScanner::Begin(char byte) {
  if (IsBlank(byte)) return;
  switch (byte) {
    case '(':
      Open(Within::String);
      parentheses_ = 1;
      return;
    case '<':
      Open(Within::Hex);
      hex_began_ = true;
      return;
    case '[':
    case '{':
      begin_ = size_;
      return Bracket(1);
    case ']':
    case '}':
    case '>':
      return Bracket(-1);
    case '%':
      return Open(Within::Comment);
    case '/':
      return Open(Within::Name);
    default:
      Open(Within::Word);
      word_ = byte;
  }
}

void ContentScanner::Bracket(int change) {
  if (change > 0 && brackets_ == 0) bracket_ = begin_;
  brackets_ = std::max(0, brackets_ + change);
}

void ContentScanner::EndWord() {
  if (brackets_ > 0) return;
  if (word_ == "q") {
    ++saves_;
  } else if (word_ == "Q") {
    if (saves_ > 0) {
      --saves_;
    } else {
      ++excess_restores_;
      if (excess_restore_) excess_restore_(begin_);
    }
  } else if (word_ == "BT" || word_ == "ET") {
    in_text_ = word_ == "BT";
  } else if (word_ == "BMC" || word_ == "BDC") {
    ++marks_;
  } else if (word_ == "EMC") {
    if (marks_ > 0) --marks_;
  } else if (word_ == "BI") {
    image_ = begin_;
  } else if (word_ == "ID" && image_) {
    within_ = Within::Image;
    tail_ = 1;
  }
}

void ContentScanner::InString(char byte) {
  if (escaped_) {
    escaped_ = false;
  } else if (byte == '\\') {
    escaped_ = true;
  } else if (byte == '(') {
    ++parentheses_;
  } else if (byte == ')' && --parentheses_ == 0) {
    within_ = Within::Nothing;
  }
}

void ContentScanner::InImage(char byte) {
  if (tail_ == 3 && IsDelimiter(byte)) {
    within_ = Within::AfterImage;
    after_.clear();
    return AfterImage(byte);
  }
  if (IsBlank(byte)) {
    tail_ = 1;
  } else if ((tail_ == 1 && byte == 'E') || (tail_ == 2 && byte == 'I')) {
    ++tail_;
  } else {
    tail_ = 0;
  }
}

void ContentScanner::AfterImage(char byte) {
  after_ += byte;
  if (!IsText(byte)) {  // these were still the image's
    within_ = Within::Image;
    tail_ = IsBlank(byte) ? 1 : 0;
  } else if (after_.size() == kEnoughText) {
    ++size_;
    EndImage();
    --size_;
  }
}

void ContentScanner::EndImage() {
  image_.reset();
  within_ = Within::Nothing;
  const std::string instructions = std::exchange(after_, {});
  size_ -= instructions.size();
  Take(instructions);
}

std::string ContentScanner::Closing() const {
  std::string closing;
  if (in_text_) closing += "ET ";
  Append(closing, marks_, "EMC ");
  Append(closing, saves_, "Q ");
  return closing;
}

size_t ContentScanner::sound_size() const {
  if (image_) return *image_;
  if (brackets_ > 0) return bracket_;
  return within_ == Within::String || within_ == Within::Hex ? begin_ : size_;
}

}  // namespace numbering
