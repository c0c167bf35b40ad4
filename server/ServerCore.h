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

// Most clients that are connected but not logged in at the same time.
constexpr std::size_t kMaxWaitingClients = 64;

// The whole server but for the sockets: who is connected, what each packet does, what time does. Used on one thread;
// times passed in never go back.
class ServerCore {
 public:
  // The log must outlive the core. At `now` it is the options' hour of the day.
  ServerCore(const ServerOptions& options, ServerLog& log, TimePoint now);
  ServerCore(const ServerCore&) = delete;
  ServerCore& operator=(const ServerCore&) = delete;

  // A new client. The link must live until Disconnect, or until the core has closed it.
  void Connect(ClientId id, ClientLink& link, const std::string& address, TimePoint now);
  // A packet from a client; one from a client that was closed meanwhile is ignored.
  void Receive(ClientId id, const Packet& packet, TimePoint now);
  // The connection has ended; `why` is for the log. Nothing happens when the core closed it.
  void Disconnect(ClientId id, const std::string& why, TimePoint now);
  // To be called some ten times a second.
  void Tick(TimePoint now);
  // Says goodbye to all and closes them.
  void Shutdown(TimePoint now);

  std::size_t GetClientCount() const { return mSessions.size(); }

 private:
  void Dispatch(Session& session, const Packet& packet, TimePoint now);
  void HandleLogin(Session& session, const PacketLoginRequest& request, TimePoint now);
  void HandleChatLine(Session& session, const char* text, TimePoint now);
  void EnterGame(Session& session, TimePoint now);
  void Move(Session& session, Place& place, TimePoint now);

  void CheckPatience(Session& session, TimePoint now);
  void MakeRoomForNewcomer(TimePoint now);
  void Drop(Session& session, const std::string& farewell, const std::string& why, TimePoint now);
  void Log(const Session& session, const std::string& text, TimePoint now);
  void MarkGone(Session& session);
  // Removing waits until nothing walks over the sessions any more.
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
