// An open file, closed with the object.

#ifndef PORTAL_DESCRIPTOR_H
#define PORTAL_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor &&other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor &operator=(Descriptor &&other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }

  int get() const { return number_; }

 private:
  int number_;
};

#endif
