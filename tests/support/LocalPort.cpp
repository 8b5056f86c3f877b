#include "tests/support/LocalPort.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

namespace {

sockaddr_in Loopback(int port) {
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

}  // namespace

LocalPort::LocalPort() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  // With this option on both sides another socket may be bound to the port as long as this one does
  // not listen.
  const int yes = 1;
  setsockopt(socket_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  sockaddr_in address = Loopback(0);
  socklen_t length = sizeof address;
  if (bind(socket_, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 ||
      getsockname(socket_, reinterpret_cast<sockaddr *>(&address), &length) != 0) {
    std::cerr << "no free port\n";
    std::abort();
  }
  number_ = ntohs(address.sin_port);
}

LocalPort::~LocalPort() { close(socket_); }

std::string LocalPort::address() const { return "127.0.0.1:" + std::to_string(number_); }

int LocalPort::Connect() const {
  const int connection = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_in address = Loopback(number_);
  if (connect(connection, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0) {
    return connection;
  }
  close(connection);
  return -1;
}
