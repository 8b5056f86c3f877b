// The service on the session's bus.

#ifndef PORTAL_BUS_PORTALBUS_H
#define PORTAL_BUS_PORTALBUS_H

#include <systemd/sd-bus.h>

#include <chrono>
#include <optional>

#include "portal/Service.h"
#include "portal/bus/Handles.h"

class PortalBus {
 public:
  using Clock = std::chrono::steady_clock;

  // The service must live as long as the object.
  explicit PortalBus(Service &service) : service_(service) {}
  PortalBus(const PortalBus &) = delete;
  PortalBus &operator=(const PortalBus &) = delete;

  // Takes the service's name on the session's bus. 0, or the reason in the system's numbers, as
  // the others; EEXIST: somebody has it.
  int Connect();

  // What to wait for.
  int descriptor() const { return sd_bus_get_fd(bus_.get()); }
  short events() const { return static_cast<short>(sd_bus_get_events(bus_.get())); }
  std::optional<Clock::time_point> NextTime() const;

  // Hears all that has come. Other than 0: the bus has gone.
  int Process();

 private:
  static int HearPreparePrint(sd_bus_message *message, void *bus, sd_bus_error *);
  static int HearPrint(sd_bus_message *message, void *bus, sd_bus_error *);
  static int HearClose(sd_bus_message *message, void *bus, sd_bus_error *);
  static int HearNameOwnerChanged(sd_bus_message *message, void *bus, sd_bus_error *);

  static const sd_bus_vtable kPrint[];
  static const sd_bus_vtable kRequest[];

  // Makes the request's object, and a call that is answered through it; negative: it cannot.
  int ReadCall(sd_bus_message *message, Call &call);
  int Offer(sd_bus_message *message, Call &call);

  Service &service_;
  Connection bus_;
};

#endif
