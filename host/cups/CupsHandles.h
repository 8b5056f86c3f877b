// Owning handles for what libcups hands out.

#ifndef HOST_CUPS_CUPSHANDLES_H
#define HOST_CUPS_CUPSHANDLES_H

#include <cups/cups.h>

#include <memory>
#include <span>
#include <string>

#include "host/cups/JobOptions.h"

struct CupsDeleter {
  void operator()(http_t *connection) const { httpClose(connection); }
  void operator()(http_addrlist_t *addresses) const { httpAddrFreeList(addresses); }
  void operator()(ipp_t *message) const { ippDelete(message); }
  void operator()(cups_dest_t *destination) const { cupsFreeDests(1, destination); }
};
using CupsConnection = std::unique_ptr<http_t, CupsDeleter>;
using CupsAddresses = std::unique_ptr<http_addrlist_t, CupsDeleter>;
using IppMessage = std::unique_ptr<ipp_t, CupsDeleter>;
using CupsDestination = std::unique_ptr<cups_dest_t, CupsDeleter>;

// All destinations of a server, instances included.
class CupsDestinations {
 public:
  explicit CupsDestinations(http_t *connection)
      : count_(cupsGetDests2(connection, &destinations_)) {}
  ~CupsDestinations() { cupsFreeDests(count_, destinations_); }
  CupsDestinations(const CupsDestinations &) = delete;
  CupsDestinations &operator=(const CupsDestinations &) = delete;

  std::span<const cups_dest_t> get() const { return {destinations_, static_cast<size_t>(count_)}; }

 private:
  cups_dest_t *destinations_ = nullptr;
  int count_;
};

class CupsOptions {
 public:
  explicit CupsOptions(const JobOptions &options) {
    for (const auto &[name, value] : options) {
      count_ = cupsAddOption(name.c_str(), value.c_str(), count_, &options_);
    }
  }
  // As libcups reads them: "NAME=VALUE ...", also in braces.
  explicit CupsOptions(const std::string &text)
      : count_(cupsParseOptions(text.c_str(), 0, &options_)) {}
  ~CupsOptions() { cupsFreeOptions(count_, options_); }
  CupsOptions(const CupsOptions &) = delete;
  CupsOptions &operator=(const CupsOptions &) = delete;

  int count() const { return count_; }
  cups_option_t *get() const { return options_; }
  std::span<const cups_option_t> all() const { return {options_, static_cast<size_t>(count_)}; }

 private:
  cups_option_t *options_ = nullptr;
  int count_ = 0;
};

#endif
