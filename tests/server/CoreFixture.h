#pragma once

#include <list>
#include <memory>
#include <optional>
#include <sstream>

#include <gtest/gtest.h>

#include "protocol/PacketList.h"
#include "server/ServerCore.h"

namespace tolva::test {

using namespace std::chrono_literals;
using Names = std::vector<std::string>;

// A client without a socket, which keeps the packets that it is sent.
struct FakeClient final : ClientLink {
  explicit FakeClient(ClientId number) : id(number) {}
  void Send(const Packet& packet) override {
    if (!isClosed) received.emplace_back(packet.Clone());
  }
  void CloseAfterSending() override { isClosed = true; }

  template <typename T>
  std::vector<const T*> All() const {
    std::vector<const T*> found;
    for (const auto& packet : received)
      if (const T* typed = PacketCast<T>(packet.get())) found.push_back(typed);
    return found;
  }
  template <typename T>
  const T& Last() const {
    static const T kNone;
    const auto found = All<T>();
    return found.empty() ? kNone : *found.back();
  }
  std::string LastLine() const {
    return Last<PacketChatMsg>().mStrUser + std::string("|") + Last<PacketChatMsg>().mStrMsg;
  }
  std::string GetDenial() const { return Last<PacketLoginDeny>().mStrReason; }
  Names GetList() const {
    Names names;
    for (const auto& name : Last<PacketChatUsers>().mStrUsers)
      if (*name != '\0') names.emplace_back(name);
    return names;
  }

  const ClientId id;
  bool isClosed = false;
  // Whether the client pings the server while time passes.
  bool isAlive = true;
  std::vector<std::unique_ptr<Packet>> received;
};

// A server for 60 users whose clock the tests set.
class CoreFixture : public ::testing::Test {
 protected:
  FakeClient& Connect() {
    FakeClient& client = mClients.emplace_back(mClients.size() + 1);
    mCore->Connect(client.id, client, "127.0.0.1", mNow);
    return client;
  }
  FakeClient& LogIn(const std::string& name) {
    FakeClient& client = Connect();
    Request(client, name);
    return client;
  }
  void Request(FakeClient& client, const std::string& name) {
    Deliver(client, PacketLoginRequest(name.c_str(), "", kVersion));
  }
  void Say(FakeClient& client, const std::string& text) { Deliver(client, PacketChatMsg("ignored", text.c_str())); }
  void Deliver(FakeClient& client, const Packet& packet) { mCore->Receive(client.id, packet, mNow); }
  void Leave(FakeClient& client) { mCore->Disconnect(client.id, "test", mNow); }
  void Pass(Duration time) {
    const TimePoint end = mNow + time;
    for (int tick = 0; mNow < end; ++tick) {
      mNow += 100ms;
      for (FakeClient& client : mClients)
        if (client.isAlive && tick % 25 == 0) Deliver(client, PacketInternPing(7));
      mCore->Tick(mNow);
    }
  }

  TimePoint mNow{};
  std::ostringstream mLogText;
  ServerLog mLog{mLogText, LogDetail::Events};
  std::optional<ServerCore> mCore{std::in_place, ServerOptions{.maxUsers = 60, .villagers = 0}, mLog, mNow};
  std::list<FakeClient> mClients;
};

}  // namespace tolva::test
