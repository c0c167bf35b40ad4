#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "protocol/LoginPackets.h"
#include "server/ChatCommands.h"
#include "server/DayClock.h"
#include "server/Lobby.h"
#include "server/Realm.h"
#include "server/Reception.h"
#include "server/ServerLog.h"
#include "server/ServerOptions.h"
#include "server/Session.h"

namespace tolva {

// Clients that are connected but not logged in.
constexpr std::size_t kMaxWaitingClients = 64;

// The whole server except the sockets: keeps the sessions and handles their packets and the passing of time. Used on
// one thread; the times passed in never decrease.
class ServerCore {
 public:
  // The log must outlive the core. `now` is the hour of the day that the options name.
  ServerCore(const ServerOptions& options, ServerLog& log, TimePoint now);
  ServerCore(const ServerCore&) = delete;
  ServerCore& operator=(const ServerCore&) = delete;

  // A new client. The link must live until Disconnect, or until the core has closed it.
  void Connect(ClientId id, ClientLink& link, const std::string& address, TimePoint now);
  // A packet from a client. Ignored once the core has closed the client.
  void Receive(ClientId id, const Packet& packet, TimePoint now);
  // The connection has ended; `why` is for the log. Ignored once the core has closed the client.
  void Disconnect(ClientId id, const std::string& why, TimePoint now);
  // To be called about ten times a second.
  void Tick(TimePoint now);
  // Says goodbye to all and closes them.
  void Shutdown(TimePoint now);

 private:
  void Handle(Session& session, const Packet& packet, TimePoint now);
  void HandleLogin(Session& session, const PacketLoginRequest& request, TimePoint now);
  void HandleChatLine(Session& session, const char* text, TimePoint now);
  void EnterGame(Session& session, TimePoint now);
  void Move(Session& session, Room& room, TimePoint now);

  void CheckPatience(Session& session, TimePoint now);
  void MakeRoomForNewcomer(TimePoint now);
  void Drop(Session& session, const std::string& farewell, const std::string& why, TimePoint now);
  void Log(const Session& session, const std::string& text, TimePoint now);
  void MarkGone(Session& session);
  // Not to be called while something iterates over the sessions.
  void RemoveGone(TimePoint now);

  ServerLog& mLog;
  TimePoint mStart;
  DayClock mDayClock;
  std::uint8_t mDarkness = kDarknessDay;
  Reception mReception;
  Realm mRealm;
  ChatCommands mCommands;
  Lobby mLobby;
  std::map<ClientId, std::unique_ptr<Session>> mSessions;
  bool mSomeAreGone = false;
};

}  // namespace tolva
