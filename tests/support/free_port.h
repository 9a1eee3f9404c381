#pragma once

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace paperway {

/// A descriptor bound to a port of loopback that nothing uses, and the port.
struct BoundSocket {
  int descriptor;
  int port;
};

inline BoundSocket bindToLoopback() {
  BoundSocket bound{socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), 0};
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* const plain = reinterpret_cast<sockaddr*>(&address);
  socklen_t size = sizeof address;
  if (bind(bound.descriptor, plain, size) == 0) getsockname(bound.descriptor, plain, &size);
  bound.port = ntohs(address.sin_port);
  return bound;
}

inline int freePort() {
  const BoundSocket bound = bindToLoopback();
  close(bound.descriptor);
  return bound.port;
}

}  // namespace paperway
