// One operation's connection to the print server.
//
// libcups reads the user's and the system's settings (CUPS_SERVER, client.conf...) once in each
// thread, and keeps its last error for each thread: an operation stays on the thread that opened
// its connection, and begins on a new one.

#ifndef HOST_CUPS_SERVERCONNECTION_H
#define HOST_CUPS_SERVERCONNECTION_H

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/Expected.h"
#include "host/cups/Authentication.h"
#include "host/cups/CupsHandles.h"

// The server that this thread would connect to, for people: "localhost:631", or the path of a
// socket.
std::string AddressOfServer();

Failure NoAnswer(const std::string &address, std::chrono::milliseconds limit);

class ServerConnection {
 public:
  // Reading and writing on the connection end when nothing moves for the limit. Looking up the
  // server's name and what libcups repeats by itself are not bounded.
  static Expected<ServerConnection> Open(std::chrono::milliseconds limit,
                                         std::shared_ptr<Authentication> authentication);

  http_t *get() const { return connection_.get(); }
  const std::string &address() const { return address_; }

  // A request about a printer, "" for none, on behalf of the user.
  IppMessage Request(ipp_op_t operation, const std::string &printer = "") const;
  // The server's answer, if it does what it is asked; otherwise null, and Refused says why not.
  IppMessage Ask(IppMessage request, const char *resource = "/") const;
  // The same of an answer, or none, that libcups has got in another way. Where the connection has
  // broken off, libcups may still tell the status of the request before.
  IppMessage Answer(ipp_t *answer) const;
  // Whether the last request was not answered: the connection has broken off.
  bool IsBroken() const;

  // That there is no answer; or, if there was one, this text with its parts: %1 is the server's
  // address, %2 its words about the last request, or what is wrong with the password that it wants,
  // %3 the subject.
  Failure Refused(std::string_view text, const std::string &subject = "") const;

 private:
  ServerConnection(CupsConnection connection, std::string address, std::chrono::milliseconds limit,
                   std::shared_ptr<Authentication> authentication)
      : connection_(std::move(connection)),
        address_(std::move(address)),
        limit_(limit),
        authentication_(std::move(authentication)) {}

  CupsConnection connection_;
  std::string address_;
  std::chrono::milliseconds limit_;
  std::shared_ptr<Authentication> authentication_;
};

// The attributes that an answer shall have.
void AskFor(ipp_t *request, const std::vector<std::string> &attributes);

// The first value of a text attribute in UTF-8, "" where there is none.
std::string TextOf(ipp_t *message, const char *attribute);
// The first value of a number or an enumeration, 0 where there is none.
int NumberOf(ipp_t *message, const char *attribute);

// Whether a refusal has to do with who asks.
bool IsNotAllowed(ipp_status_t status);

// What libcups or the server says about this thread's last operation; no full stop.
std::string LastWords();

#endif
