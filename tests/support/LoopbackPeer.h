#pragma once

#include <cerrno>
#include <cstdint>
#include <string>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>

#include "foundation/Descriptor.h"
#include "support/WaitUntil.h"

namespace tolva::test {

// A peer on 127.0.0.1 that listens on a port of its own from construction on. It has at most one connection, accepted
// or made, and waits at most kPatience for anything.
class LoopbackPeer {
 public:
  // Port 0 takes any free one.
  explicit LoopbackPeer(std::uint16_t port = 0) : mListener(MakeSocket()), mAddress(At(port)) {
    const int on = 1;
    ::setsockopt(mListener.Get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    socklen_t size = sizeof mAddress;
    ::bind(mListener.Get(), reinterpret_cast<sockaddr*>(&mAddress), size);
    ::listen(mListener.Get(), 4);
    ::getsockname(mListener.Get(), reinterpret_cast<sockaddr*>(&mAddress), &size);
  }

  std::uint16_t GetPort() const { return ntohs(mAddress.sin_port); }
  // Whether somebody is waiting to be accepted.
  bool HasCaller() const {
    pollfd entry = {mListener.Get(), POLLIN, 0};
    return ::poll(&entry, 1, 0) > 0;
  }

  bool Accept() {
    mSocket = BePatient(Descriptor(::accept(mListener.Get(), nullptr, nullptr)));
    return mSocket.IsOpen();
  }
  bool Connect(std::uint16_t port) {
    mSocket = MakeSocket();
    const sockaddr_in address = At(port);
    return ::connect(mSocket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  }

  bool Send(const std::string& bytes) {
    return ::send(mSocket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
  }
  // The next `count` bytes; fewer if the stream ends before.
  std::string Receive(std::size_t count) {
    std::string bytes(count, '\0');
    const ssize_t got = ::recv(mSocket.Get(), bytes.data(), count, MSG_WAITALL);
    bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return bytes;
  }
  // Waits until the other side closes the connection. False if it sends something instead.
  bool SeesEnd() {
    char byte;
    const ssize_t got = ::recv(mSocket.Get(), &byte, 1, 0);
    return got == 0 || (got < 0 && errno != EAGAIN);
  }
  void Close() { mSocket.Close(); }

 private:
  static sockaddr_in At(std::uint16_t port) { return {AF_INET, htons(port), {htonl(INADDR_LOOPBACK)}, {}}; }
  static Descriptor MakeSocket() { return BePatient(Descriptor(::socket(AF_INET, SOCK_STREAM, 0))); }
  static Descriptor BePatient(Descriptor socket) {
    const timeval patience = {kPatience.count(), 0};
    ::setsockopt(socket.Get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    return socket;
  }

  Descriptor mListener;
  sockaddr_in mAddress;
  Descriptor mSocket;
};

}  // namespace tolva::test
