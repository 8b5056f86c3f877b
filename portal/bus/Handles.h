// Owning handles for what libsystemd gives.

#ifndef PORTAL_BUS_HANDLES_H
#define PORTAL_BUS_HANDLES_H

#include <systemd/sd-bus.h>

#include <memory>

template <auto Release>
struct Releasing {
  template <typename Object>
  void operator()(Object *object) const {
    Release(object);
  }
};

using Message = std::unique_ptr<sd_bus_message, Releasing<sd_bus_message_unref>>;
using Slot = std::unique_ptr<sd_bus_slot, Releasing<sd_bus_slot_unref>>;
using Connection = std::unique_ptr<sd_bus, Releasing<sd_bus_flush_close_unref>>;

#endif
