#include "host/session/Notes.h"

#include "host/base/Localized.h"
#include "host/base/Text.h"

namespace {

std::string WithValue(const std::string &key, const std::string &value) {
  return value.empty() ? key : key + ' ' + Quoted(value);
}

}  // namespace

std::string DoesNotFit(const std::string &key, const std::string &value, const std::string &why) {
  return Localized("%1 does not fit: %2", {WithValue(key, value), why});
}

std::string DefaultDoesNotFit(const std::string &key, const std::string &value,
                              const std::string &why, bool is_of_user) {
  const std::string what = WithValue(key, value);
  return Localized("%1 does not fit: %2",
                   {is_of_user ? Localized("%1 (set with lpoptions)", {what})
                               : Localized("%1 (a default of the queue)", {what}),
                    why});
}
