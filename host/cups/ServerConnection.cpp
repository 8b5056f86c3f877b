#include "host/cups/ServerConnection.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <sstream>
#include <vector>

#include "host/base/Localized.h"
#include "host/base/OneLine.h"
#include "host/base/Text.h"
#include "host/base/Utf8.h"

namespace {

std::string Words(std::string_view text) {
  text = Trimmed(text);
  while (text.ends_with('.')) text.remove_suffix(1);
  return OnOneLine(ToUtf8(text));
}

// libcups tries all addresses at once and then only says that the host is down.
int ErrorOfConnecting(const http_addrlist_t *addresses) {
  int error = EHOSTDOWN;
  for (; addresses != nullptr; addresses = addresses->next) {
    const http_addr_t &address = addresses->addr;
    const int socket_fd = socket(address.addr.sa_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket_fd < 0) continue;
    if (connect(socket_fd, &address.addr, httpAddrLength(&address)) != 0) error = errno;
    close(socket_fd);
  }
  return error;
}

Failure NotThere(const std::string &address, const std::string &why) {
  return {Localized("no print server at %1: %2; is it running? CUPS_SERVER names another",
                    {address, why}),
          /*is_unanswered=*/true};
}

}  // namespace

std::string LastWords() {
  const char *words = cupsLastErrorString();
  return Words(words == nullptr ? "" : words);
}

std::string AddressOfServer() {
  const std::string host = cupsServer();
  return host.starts_with('/') ? host : host + ':' + std::to_string(ippPort());
}

Failure NoAnswer(const std::string &address, std::chrono::milliseconds limit) {
  std::ostringstream seconds;
  seconds << std::chrono::duration<double>(limit).count();
  return {Localized("the print server %1 does not answer within %2 s", {address, seconds.str()}),
          /*is_unanswered=*/true};
}

Expected<ServerConnection> ServerConnection::Open(std::chrono::milliseconds limit,
                                                  std::shared_ptr<Authentication> authentication) {
  const std::string address = AddressOfServer();
  authentication->Begin(address);
  const std::string port = std::to_string(ippPort());
  const CupsAddresses addresses(httpAddrGetList(cupsServer(), AF_UNSPEC, port.c_str()));
  if (addresses == nullptr) return NotThere(address, LastWords());

  // Connecting in a second step keeps the reason why it fails.
  CupsConnection connection(httpConnect2(cupsServer(), ippPort(), addresses.get(), AF_UNSPEC,
                                         cupsEncryption(), 1, 0, nullptr));
  if (connection == nullptr) return NotThere(address, LastWords());
  if (httpReconnect2(connection.get(), static_cast<int>(limit.count()), nullptr) != 0) {
    const int error = httpError(connection.get());
    if (error == ETIMEDOUT) return NoAnswer(address, limit);
    return NotThere(address, error == EHOSTDOWN ? std::strerror(ErrorOfConnecting(addresses.get()))
                                                : LastWords());
  }
  httpSetTimeout(connection.get(), std::chrono::duration<double>(limit).count(), nullptr, nullptr);
  authentication->UseFor(connection.get());
  return ServerConnection(std::move(connection), address, limit, std::move(authentication));
}

IppMessage ServerConnection::Request(ipp_op_t operation, const std::string &printer) const {
  IppMessage request(ippNewRequest(operation));
  if (!printer.empty()) {
    char uri[HTTP_MAX_URI];
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", ippPort(),
                     "/printers/%s", printer.c_str());
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
  }
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
               cupsUser());
  return request;
}

IppMessage ServerConnection::Ask(IppMessage request, const char *resource) const {
  return Answer(cupsDoRequest(get(), request.release(), resource));
}

IppMessage ServerConnection::Answer(ipp_t *answer) const {
  IppMessage owned(answer);
  if (IsBroken() || cupsLastError() >= IPP_STATUS_REDIRECTION_OTHER_SITE) return nullptr;
  return owned;
}

bool ServerConnection::IsBroken() const {
  if (httpError(get()) != 0) return true;
  // What cannot be sent to its end is no error of the connection for libcups.
  return cupsLastError() == IPP_STATUS_ERROR_INTERNAL && httpGetState(get()) != HTTP_STATE_WAITING;
}

Failure ServerConnection::Refused(std::string_view text, const std::string &subject) const {
  if (const auto &failure = authentication_->failure()) {
    return failure->Reworded(Filled(text, {address_, failure->message, subject}));
  }
  const int error = httpError(get());
  if (error == ETIMEDOUT || error == EWOULDBLOCK) return NoAnswer(address_, limit_);
  if (!IsBroken()) return Failure{Filled(text, {address_, LastWords(), subject})};
  // libcups takes an answer that ends in the middle for an argument that is not valid, and has no
  // reason, or "Success", for what it cannot send.
  const int reason = error == 0 ? EPIPE : error == EINVAL ? EPROTO : error;
  return {Localized("the connection to the print server %1 broke off: %2; is it still running?",
                    {address_, std::strerror(reason)}),
          /*is_unanswered=*/true};
}

bool IsNotAllowed(ipp_status_t status) {
  return status == IPP_STATUS_ERROR_FORBIDDEN || status == IPP_STATUS_ERROR_NOT_AUTHENTICATED ||
         status == IPP_STATUS_ERROR_NOT_AUTHORIZED ||
         status == IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED;
}

void AskFor(ipp_t *request, const std::vector<std::string> &attributes) {
  std::vector<const char *> names;
  for (const std::string &attribute : attributes) names.push_back(attribute.c_str());
  ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(names.size()), nullptr, names.data());
}

std::string TextOf(ipp_t *message, const char *attribute) {
  const char *text = ippGetString(ippFindAttribute(message, attribute, IPP_TAG_ZERO), 0, nullptr);
  return text == nullptr ? "" : ToUtf8(Trimmed(text));
}

int NumberOf(ipp_t *message, const char *attribute) {
  return ippGetInteger(ippFindAttribute(message, attribute, IPP_TAG_ZERO), 0);
}
