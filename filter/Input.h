// What is to be printed.

#ifndef FILTER_INPUT_H
#define FILTER_INPUT_H

#include <string>
#include <string_view>

#include "filter/Descriptor.h"

class Input {
 public:
  explicit Input(Descriptor source) : source_(std::move(source)) {}
  ~Input();
  Input(const Input &) = delete;
  Input &operator=(const Input &) = delete;

  // Makes all of it readable, in a temporary file where it comes through a pipe. Why that cannot be
  // done; empty: bytes() are there.
  std::string Load();
  std::string_view bytes() const { return {bytes_, size_}; }
  int file() const { return copy_.IsOpen() ? copy_.get() : source_.get(); }

  // Hands all of it on as it came, whether it was loaded or not. False: as WriteAll.
  bool PassOn(int out);

 private:
  std::string CopySource();

  Descriptor source_, copy_;
  std::string pending_;  // was read, and is not in the copy
  const char *bytes_ = nullptr;
  size_t size_ = 0;
};

#endif
