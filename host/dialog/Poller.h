// Waiting for background work without stopping the window.

#ifndef HOST_DIALOG_POLLER_H
#define HOST_DIALOG_POLLER_H

#import <Foundation/Foundation.h>

#include <functional>

#include "host/base/Retained.h"

// Asks again and again, between events of the main thread, until the answer is yes or the object
// goes.
class Poller {
 public:
  Poller() = default;
  explicit Poller(std::function<bool()> has_ended);
  Poller(Poller &&other) noexcept = default;
  Poller &operator=(Poller &&other) noexcept;
  Poller(const Poller &) = delete;
  Poller &operator=(const Poller &) = delete;
  ~Poller();

 private:
  Retained<id> target_;
};

#endif
