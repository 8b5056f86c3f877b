#include "host/session/Notes.h"

#include "host/base/Localized.h"
#include "host/base/Text.h"

std::string DoesNotFit(const std::string &key, const std::string &value, const std::string &why) {
  const std::string what = value.empty() ? key : key + ' ' + Quoted(value);
  return Localized("%1 does not fit: %2", {what, why});
}
