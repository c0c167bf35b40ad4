#pragma once

#include <cerrno>
#include <cstdint>
#include <string>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include "support/WaitUntil.h"

namespace tolva::test {

// A peer on 127.0.0.1, for as long as the object lives: listens from the start on a port of its own, and has at most
// one connection, accepted or made. It waits at most kPatience for anything.
class LoopbackPeer {
 public:
  // Port 0 takes any free one.
  explicit LoopbackPeer(std::uint16_t port = 0) : mListener(::socket(AF_INET, SOCK_STREAM, 0)), mAddress(At(port)) {
    const int on = 1;
    ::setsockopt(mListener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    socklen_t size = sizeof mAddress;
    ::bind(mListener, reinterpret_cast<sockaddr*>(&mAddress), size);
    ::listen(mListener, 4);
    ::getsockname(mListener, reinterpret_cast<sockaddr*>(&mAddress), &size);
    BePatient(mListener);
  }
  ~LoopbackPeer() {
    Close();
    ::close(mListener);
  }
  LoopbackPeer(const LoopbackPeer&) = delete;
  LoopbackPeer& operator=(const LoopbackPeer&) = delete;

  std::uint16_t GetPort() const { return ntohs(mAddress.sin_port); }
  // Whether somebody wants to connect now.
  bool HasCaller() const {
    pollfd entry = {mListener, POLLIN, 0};
    return ::poll(&entry, 1, 0) > 0;
  }

  bool Accept() {
    Close();
    mSocket = ::accept(mListener, nullptr, nullptr);
    BePatient(mSocket);
    return mSocket >= 0;
  }
  bool Connect(std::uint16_t port) {
    mSocket = ::socket(AF_INET, SOCK_STREAM, 0);
    BePatient(mSocket);
    const sockaddr_in address = At(port);
    return ::connect(mSocket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  }

  bool Send(const std::string& bytes) {
    return ::send(mSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size());
  }
  // Exactly so many bytes, or what came before the stream ended.
  std::string Receive(std::size_t count) {
    std::string bytes(count, '\0');
    const ssize_t got = ::recv(mSocket, bytes.data(), count, MSG_WAITALL);
    bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return bytes;
  }
  // Waits for the other side to close; false if it sends something instead.
  bool SeesEnd() {
    char byte;
    const ssize_t got = ::recv(mSocket, &byte, 1, 0);
    return got == 0 || (got < 0 && errno != EAGAIN);
  }
  void Close() {
    if (mSocket >= 0) ::close(mSocket);
    mSocket = -1;
  }

 private:
  static sockaddr_in At(std::uint16_t port) { return {AF_INET, htons(port), {htonl(INADDR_LOOPBACK)}, {}}; }
  static void BePatient(int socket) {
    const timeval patience = {kPatience.count(), 0};
    ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
  }

  int mListener;
  sockaddr_in mAddress;
  int mSocket = -1;
};

}  // namespace tolva::test
