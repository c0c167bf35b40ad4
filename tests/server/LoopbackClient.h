#pragma once

#include <chrono>
#include <string>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "foundation/Text.h"
#include "protocol/PacketList.h"
#include "protocol/RecordCutter.h"

namespace tolva::test {

// A client over a real socket that does as it is told, also what no client would do. Waits end after ten seconds.
class LoopbackClient {
 public:
  explicit LoopbackClient(std::uint16_t port) : mSocket(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    mClosed = ::connect(mSocket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0;
  }
  ~LoopbackClient() { ::close(mSocket); }
  LoopbackClient(const LoopbackClient&) = delete;
  LoopbackClient& operator=(const LoopbackClient&) = delete;

  void SendBytes(const std::string& bytes) {
    for (std::size_t sent = 0; sent < bytes.size();) {
      const ssize_t count = ::send(mSocket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
      if (count <= 0) return;
      sent += static_cast<std::size_t>(count);
    }
  }
  void Send(const Packet& packet) { SendBytes(Encode(packet)); }
  static std::string Encode(const Packet& packet) {
    std::uint8_t record[kRecordBufferSize];
    const std::uint32_t length = PacketConverter().WriteBuffer(record, packet);
    return {record, record + length};
  }

  // Reads on until a packet of the class fulfils the condition; false when none comes.
  template <typename T, typename Condition>
  bool Await(const Condition& condition) {
    return ReadUntil([&](const Packet* packet) {
      const T* typed = PacketCast<T>(packet);
      return typed != nullptr && condition(*typed);
    });
  }
  bool AwaitLine(const std::string& text) {
    return Await<PacketChatMsg>([&](const auto& line) { return std::string(line.mStrMsg).find(text) != text.npos; });
  }
  // Whether the server closes the connection, with or without a farewell.
  bool AwaitClose() {
    ReadUntil([](const Packet*) { return false; });
    return mClosed;
  }
  bool LogIn(const char* name) {
    PacketLoginRequest request;
    CopyText(request.mStrLogin, name);
    static_cast<VersionNumbers&>(request) = {kVersionMajor, kVersionMinor, kVersionBugfix};
    Send(request);
    return AwaitLine("Welcome");
  }
  bool ChatWorks(const std::string& text) {
    Send(PacketChatMsg("", text.c_str()));
    return AwaitLine(text);
  }

 private:
  template <typename Predicate>
  bool ReadUntil(const Predicate& predicate) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (;;) {
      for (auto result = mCutter.Next(); result.packet != nullptr; result = mCutter.Next())
        if (predicate(result.packet.get())) return true;
      const auto left =
          std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
      pollfd waiting{mSocket, POLLIN, 0};
      if (mClosed || left.count() <= 0 || ::poll(&waiting, 1, static_cast<int>(left.count())) <= 0) return false;
      const auto room = mCutter.Room();
      const ssize_t count = ::recv(mSocket, room.data(), room.size(), 0);
      mClosed = count <= 0;
      if (count > 0) mCutter.Commit(static_cast<std::size_t>(count));
    }
  }

  int mSocket;
  bool mClosed = false;
  RecordCutter mCutter;
};

}  // namespace tolva::test
