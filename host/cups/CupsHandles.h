// Owning handles for what libcups hands out.

#ifndef HOST_CUPS_CUPSHANDLES_H
#define HOST_CUPS_CUPSHANDLES_H

#include <cups/cups.h>

#include <memory>
#include <span>

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

#endif
