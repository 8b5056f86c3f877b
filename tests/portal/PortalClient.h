// An application that prints through the portal, and says of itself what a test wants.

#ifndef TESTS_PORTAL_PORTALCLIENT_H
#define TESTS_PORTAL_PORTALCLIENT_H

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "portal/Descriptor.h"
#include "portal/Mapping.h"
#include "portal/Service.h"
#include "portal/bus/Handles.h"

class PortalClient {
 public:
  // Has a connection of its own to the bus at this address.
  explicit PortalClient(const std::string &address);

  // Each begins a request and answers its handle, at once. 0: no token.
  std::string PreparePrint(const JobWords &words = {}, const std::string &parent = "");
  std::string Print(const std::filesystem::path &document, uint32_t token);
  std::string Print(const Descriptor &document, uint32_t token);
  void Close(const std::string &handle);

  // Waits for the answer, which comes as a signal. None: it does not come.
  std::optional<Reply> Await(const std::string &handle);

 private:
  static int HearResponse(sd_bus_message *message, void *client, sd_bus_error *);

  std::string NewToken() { return "t" + std::to_string(++requests_); }
  Message NewCall(const char *path, const char *interface, const char *method);
  std::string Send(const Message &call);

  Connection bus_;
  int requests_ = 0;
  std::map<std::string, Reply> replies_;
};

#endif
