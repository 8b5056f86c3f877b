// Owning handles for Objective-C objects.

#ifndef HOST_BASE_RETAINED_H
#define HOST_BASE_RETAINED_H

#import <Foundation/Foundation.h>

#include <utility>

// An Objective-C object, released with the handle.
template <typename Object>
class Retained {
 public:
  Retained() = default;
  // Takes over a reference that the caller owns (alloc, copy).
  static Retained Adopt(Object object) { return Retained(object); }
  // Adds a reference of its own.
  static Retained Share(Object object) { return Retained([object retain]); }

  Retained(const Retained &other) : object_([other.object_ retain]) {}
  Retained(Retained &&other) noexcept : object_(std::exchange(other.object_, nil)) {}
  Retained &operator=(Retained other) {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Retained() { [object_ release]; }

  Object get() const { return object_; }

 private:
  explicit Retained(Object object) : object_(object) {}
  Object object_ = nil;
};

#endif
