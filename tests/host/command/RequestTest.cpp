#include "host/command/Request.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

// What comes of this input, at the end of which somebody may still write.
class Input {
 public:
  explicit Input(const std::string &text, bool stays_open = false) {
    EXPECT_EQ(0, pipe(ends_));
    EXPECT_EQ(static_cast<ssize_t>(text.size()), write(ends_[1], text.data(), text.size()));
    if (!stays_open) close(std::exchange(ends_[1], -1));
  }
  ~Input() {
    close(ends_[0]);
    if (ends_[1] >= 0) close(ends_[1]);
  }
  Input(const Input &) = delete;
  Input &operator=(const Input &) = delete;

  Expected<std::optional<RequestedArguments>> Request(std::chrono::milliseconds limit = 10s) {
    return AwaitRequest(ends_[0], limit);
  }
  char Next() {
    char byte = 0;
    return read(ends_[0], &byte, 1) == 1 ? byte : '\0';
  }

 private:
  int ends_[2];
};

}  // namespace

TEST(Request, IsALineWithTexts) {
  Input input("[\"--title\", \"a \\\"b\\\" \\u00fc\\n\"]\nmore");
  const auto request = input.Request();
  ASSERT_TRUE(request);
  ASSERT_TRUE(*request);
  EXPECT_EQ((RequestedArguments{"--title", "a \"b\" ü\n"}), **request);
  EXPECT_EQ('m', input.Next());
}

TEST(Request, DoesNotComeFromInputThatEndsOrIsSilent) {
  for (const char *text : {"", "[\"--json\"]"}) {
    const auto request = Input(text).Request();
    ASSERT_TRUE(request);
    EXPECT_FALSE(*request) << text;
  }
  const auto request = Input("[", /*stays_open=*/true).Request(20ms);
  ASSERT_TRUE(request);
  EXPECT_FALSE(*request);
}

TEST(Request, OfAnotherShapeIsRefused) {
  for (const char *text : {"\n", "--json\n", "{}\n", "[1]\n", "[\"a\"\n", "[[\"a\"]]\n"}) {
    const auto request = Input(text).Request();
    ASSERT_FALSE(request) << text;
    EXPECT_EQ("the request is no line with a JSON array of texts", request.message());
  }
}
