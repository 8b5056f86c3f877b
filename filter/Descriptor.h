// Open files.

#ifndef FILTER_DESCRIPTOR_H
#define FILTER_DESCRIPTOR_H

#include <string>
#include <string_view>

// Closes what it has.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor();
  Descriptor(Descriptor &&other) noexcept : number_(other.Release()) {}
  Descriptor &operator=(Descriptor &&other) noexcept;

  int get() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }
  int Release();

 private:
  int number_ = -1;
};

// A file in TMPDIR that nobody sees and that goes with the process, or none, with errno.
Descriptor TemporaryFile();

// Each answers whether it did all, with errno where it did not.
bool WriteAll(int out, std::string_view bytes);
// All that comes from where `in` stands now.
bool CopyAll(int in, int out);

// What errno says, in words.
std::string SystemReason();

#endif
