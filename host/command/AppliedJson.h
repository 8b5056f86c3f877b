// Who does what bundles want, for scripts.

#ifndef HOST_COMMAND_APPLIEDJSON_H
#define HOST_COMMAND_APPLIEDJSON_H

#include <nlohmann/json.hpp>

#include "host/session/Application.h"

// [{"bundle", "by"}...]
inline nlohmann::ordered_json AppliedJson(const Applications &applications) {
  nlohmann::ordered_json applied = nlohmann::ordered_json::array();
  for (const Application &application : applications) {
    applied.push_back({{"bundle", application.bundle}, {"by", WordFor(application.by)}});
  }
  return applied;
}

#endif
