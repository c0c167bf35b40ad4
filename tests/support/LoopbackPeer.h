#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "support/WaitUntil.h"

namespace tolva::test {

// A peer on 127.0.0.1, for as long as the object lives: listens from the start on a port of its own, and has at most
// one connection, accepted or made. It waits at most kPatience for anything.
class LoopbackPeer {
 public:
  // Port 0 takes any free one.
  explicit LoopbackPeer(std::uint16_t port = 0) : mListener(::socket(AF_INET, SOCK_STREAM, 0)) {
    const int on = 1;
    ::setsockopt(mListener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address = Loopback(port);
    ::bind(mListener, reinterpret_cast<sockaddr*>(&address), sizeof address);
    ::listen(mListener, 4);
    socklen_t size = sizeof address;
    ::getsockname(mListener, reinterpret_cast<sockaddr*>(&address), &size);
    mPort = ntohs(address.sin_port);
  }
  ~LoopbackPeer() {
    Close();
    ::close(mListener);
  }
  LoopbackPeer(const LoopbackPeer&) = delete;
  LoopbackPeer& operator=(const LoopbackPeer&) = delete;

  std::uint16_t GetPort() const { return mPort; }
  // Whether somebody wants to connect now.
  bool HasCaller() const { return IsReady(mListener, 0); }

  bool Accept() {
    Close();
    if (!IsReady(mListener, kPatienceMs)) return false;
    mSocket = ::accept(mListener, nullptr, nullptr);
    return mSocket >= 0;
  }
  bool Connect(std::uint16_t port) {
    mSocket = ::socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Loopback(port);
    return ::connect(mSocket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  }

  bool Send(const std::string& bytes) {
    return ::send(mSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
  }
  // Exactly so many bytes, or what came before the stream ended.
  std::string Receive(std::size_t count) {
    std::string bytes(count, '\0');
    std::size_t held = 0;
    while (held < count && IsReady(mSocket, kPatienceMs)) {
      const ssize_t got = ::recv(mSocket, bytes.data() + held, count - held, 0);
      if (got <= 0) break;
      held += static_cast<std::size_t>(got);
    }
    bytes.resize(held);
    return bytes;
  }
  // Waits for the other side to close; false if it sends something instead.
  bool SeesEnd() {
    char byte;
    return IsReady(mSocket, kPatienceMs) && ::recv(mSocket, &byte, 1, 0) <= 0;
  }
  void Close() {
    if (mSocket >= 0) ::close(mSocket);
    mSocket = -1;
  }

 private:
  static constexpr int kPatienceMs = std::chrono::milliseconds(kPatience).count();

  static sockaddr_in Loopback(std::uint16_t port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
  }
  static bool IsReady(int socket, int waitMs) {
    pollfd entry = {socket, POLLIN, 0};
    return ::poll(&entry, 1, waitMs) > 0;
  }

  int mListener;
  int mSocket = -1;
  std::uint16_t mPort = 0;
};

}  // namespace tolva::test
