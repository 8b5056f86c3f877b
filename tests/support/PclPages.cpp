#include "tests/support/PclPages.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

constexpr char kEscape = '\x1b';

std::string Unpacked(std::string_view data) {
  std::string line;
  for (size_t at = 0; at < data.size();) {
    const int count = static_cast<signed char>(data[at++]);
    if (count >= 0) {
      line += data.substr(at, count + 1);
      at += count + 1;
    } else if (count != -128 && at < data.size()) {
      line.append(1 - count, data[at++]);
    }
  }
  return line;
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  std::vector<PclPage> Read() {
    while (!rest_.empty()) {
      const char first = Take();
      if (first == '\f') {
        pages_.push_back(std::move(page_));
        page_ = {};
      } else if (first == kEscape) {
        TakeSequence();
      } else {
        setup_ += first;
      }
    }
    return std::move(pages_);
  }

 private:
  char Take() {
    const char first = rest_.empty() ? '\0' : rest_.front();
    rest_.remove_prefix(rest_.empty() ? 0 : 1);
    return first;
  }

  // Escape, two characters that say what it is about, then numbers with a letter each; the last
  // letter is a capital. Or escape and a single character.
  void TakeSequence() {
    const std::string about = {Take(), rest_.empty() ? '\0' : rest_.front()};
    if (about[1] < '`' || about[1] > '~') {
      setup_ += kEscape + about.substr(0, 1);
      return;
    }
    Take();
    for (char letter = 'a'; !rest_.empty() && (letter < 'A' || letter > 'Z');) {
      const size_t end = rest_.find_first_not_of("+-0123456789.");
      if (end == rest_.npos) return;
      const std::string value(rest_.substr(0, end));
      letter = rest_[end];
      rest_.remove_prefix(end + 1);
      Obey(about, value, static_cast<char>(letter & ~0x20));
    }
  }

  void Obey(const std::string &about, const std::string &value, char letter) {
    const size_t number = std::strtoul(value.c_str(), nullptr, 10);
    if (about == "*b" && letter == 'M') {
      mode_ = number;
      EXPECT_TRUE(mode_ == 0 || mode_ == 2) << "packed in a way that is not known here";
    } else if (about == "*b" && letter == 'Y') {
      page_.lines.insert(page_.lines.end(), number, "");
    } else if (about == "*b" && letter == 'W') {
      if (page_.lines.empty()) page_.setup = std::move(setup_);
      setup_.clear();
      std::string line(rest_.substr(0, number));
      rest_.remove_prefix(std::min(number, rest_.size()));
      if (mode_ == 2) line = Unpacked(line);
      page_.lines.push_back(line.substr(0, line.find_last_not_of('\0') + 1));
    } else {
      setup_ += kEscape + about + value + letter;
    }
  }

  std::string_view rest_;
  std::string setup_;
  size_t mode_ = 0;
  PclPage page_;
  std::vector<PclPage> pages_;
};

}  // namespace

std::vector<PclPage> PclPages(std::string_view bytes) { return Reader(bytes).Read(); }
