#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include "protocol/PacketList.h"
#include "protocol/RecordCutter.h"

namespace tolva::test {

// The other end of the client's connection: one loopback socket, driven step by step by the test.
class FakeServer {
 public:
  FakeServer() : mListener(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(mListener, reinterpret_cast<sockaddr*>(&address), size);
    ::listen(mListener, 1);
    ::getsockname(mListener, reinterpret_cast<sockaddr*>(&address), &size);
    mPort = ntohs(address.sin_port);
  }
  ~FakeServer() {
    ::close(mPeer);
    ::close(mListener);
  }

  std::string GetIni() const { return "[NETWORK]\nHost=127.0.0.1\nPort=" + std::to_string(mPort) + "\n"; }

  void Accept() {
    mPeer = ::accept(mListener, nullptr, nullptr);
    const timeval patience{10, 0};
    ::setsockopt(mPeer, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
  }

  void SendBytes(const void* bytes, std::size_t count) { ::send(mPeer, bytes, count, MSG_NOSIGNAL); }
  void Send(const Packet& packet) {
    std::uint8_t record[kRecordBufferSize];
    SendBytes(record, PacketConverter().WriteBuffer(record, packet));
  }
  // A plain packet that claims to be of another class.
  void SendClaim(PacketCode code) {
    const std::uint32_t record[] = {htonl(kProtocolMagic), 0, htonl(16), htonl(code)};
    SendBytes(record, sizeof record);
  }

  // The next packet; throws when none comes within ten seconds.
  std::unique_ptr<Packet> Receive() {
    for (;;) {
      auto next = mCutter.Next();
      if (next.outcome == RecordCutter::Outcome::Cut) return std::move(next.packet);
      const auto room = mCutter.Room();
      const auto count = ::recv(mPeer, room.data(), room.size(), 0);
      if (count <= 0 || next.outcome == RecordCutter::Outcome::Broken)
        throw std::runtime_error("the client sent nothing");
      mCutter.Commit(static_cast<std::size_t>(count));
    }
  }

 private:
  int mListener;
  int mPeer = -1;
  std::uint16_t mPort = 0;
  RecordCutter mCutter;
};

}  // namespace tolva::test
