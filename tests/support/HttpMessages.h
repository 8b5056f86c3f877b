// Where messages of HTTP end that follow one another on a connection.

#ifndef TESTS_SUPPORT_HTTPMESSAGES_H
#define TESTS_SUPPORT_HTTPMESSAGES_H

#include <cstddef>
#include <string>

// The messages are requests: without a length and without chunks, a message is its head.
class HttpMessages {
 public:
  // Takes the next byte; whether it is the last one of its message.
  bool Take(char byte);
  // Whether the next byte is the first one of a message.
  bool IsBetween() const { return part_ == Part::kHead && text_.empty(); }

 private:
  enum class Part { kHead, kBody, kChunkSize, kChunk, kTrailer };

  bool Enter(Part part, size_t rest = 0);
  bool TakeLine();
  bool EndHead();

  Part part_ = Part::kHead;
  std::string text_;  // of the head, or of the line
  size_t rest_ = 0;   // of the body or chunk
};

#endif
