#pragma once

#include <list>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "protocol/PacketList.h"
#include "server/ServerCore.h"

namespace tolva::test {

// A client without a socket: keeps what it is sent.
class FakeClient final : public ClientLink {
 public:
  explicit FakeClient(ClientId id) : mId(id) {}

  void Send(const Packet& packet) override {
    if (!mClosed) mReceived.emplace_back(packet.Clone());
  }
  void CloseAfterSending() override { mClosed = true; }

  ClientId GetId() const { return mId; }
  bool IsClosed() const { return mClosed; }
  // Whether the client still answers to the time that passes.
  bool mAlive = true;

  std::vector<PacketCode> GetCodes() const {
    std::vector<PacketCode> codes;
    for (const auto& packet : mReceived) codes.push_back(packet->mEnmCode);
    return codes;
  }
  template <typename T>
  std::vector<const T*> All() const {
    std::vector<const T*> found;
    for (const auto& packet : mReceived)
      if (const T* typed = PacketCast<T>(packet.get())) found.push_back(typed);
    return found;
  }
  template <typename T>
  const T& Last() const {
    static const T kNone;
    const auto found = All<T>();
    EXPECT_FALSE(found.empty()) << "no " << T::kName;
    return found.empty() ? kNone : *found.back();
  }
  std::string LastLine() const { return std::string(Last<PacketChatMsg>().mStrUser) + '|' + GetLastText(); }
  std::string GetLastText() const { return Last<PacketChatMsg>().mStrMsg; }
  std::vector<std::string> GetList() const {
    const auto& list = Last<PacketChatUsers>();
    std::vector<std::string> names;
    for (const auto& name : list.mStrUsers)
      if (*name != '\0') names.emplace_back(name);
    return names;
  }
  void Forget() { mReceived.clear(); }

 private:
  ClientId mId;
  bool mClosed = false;
  std::vector<std::unique_ptr<Packet>> mReceived;
};

// A server core with a clock that tests move.
class CoreFixture : public ::testing::Test {
 protected:
  FakeClient& Connect() {
    FakeClient& client = mClients.emplace_back(++mLastId);
    mCore->Connect(client.GetId(), client, "127.0.0.1", mNow);
    return client;
  }
  FakeClient& LogIn(const char* name) {
    FakeClient& client = Connect();
    Request(client, name);
    return client;
  }
  void Request(FakeClient& client, const char* name, std::uint16_t bugfix = kVersionBugfix) {
    PacketLoginRequest request;
    CopyText(request.mStrLogin, name);
    static_cast<VersionNumbers&>(request) = {kVersionMajor, kVersionMinor, bugfix};
    Deliver(client, request);
  }
  void Say(FakeClient& client, const std::string& text) { Deliver(client, PacketChatMsg("ignored", text.c_str())); }
  void Deliver(FakeClient& client, const Packet& packet) { mCore->Receive(client.GetId(), packet, mNow); }
  void Pass(Duration time) {
    const TimePoint end = mNow + time;
    for (int tick = 0; mNow < end; ++tick) {
      mNow += std::chrono::milliseconds(100);
      for (FakeClient& client : mClients)
        if (client.mAlive && tick % 25 == 0) Deliver(client, PacketInternPing(7));
      mCore->Tick(mNow);
    }
  }
  void Restart(const ServerOptions& options) { mCore = std::make_unique<ServerCore>(options, mLog, mNow); }

  TimePoint mNow{};
  std::ostringstream mLogText;
  ServerLog mLog{mLogText, LogDetail::Events};
  std::unique_ptr<ServerCore> mCore = std::make_unique<ServerCore>(ServerOptions(), mLog, mNow);
  std::list<FakeClient> mClients;
  ClientId mLastId = 0;
};

}  // namespace tolva::test
