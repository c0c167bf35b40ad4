#pragma once

#include <vector>

#include "protocol/ChatPackets.h"
#include "server/Room.h"
#include "server/common/RateLimiter.h"

namespace tolva {

// The chat room that users enter after the login and return to from the world.
class Lobby final : public Room {
 public:
  Lobby();

  void Enter(Session& session, TimePoint now) override;
  void Leave(Session& session, TimePoint now) override;
  void Say(Session& session, const std::string& line, TimePoint now) override;
  void Handle(Session&, const Packet&, TimePoint) override {}
  void SetDarkness(std::uint8_t darkness) override;
  void Tick(TimePoint now) override { ShareListsIfDue(now); }

  // The number of users in the world, which the lobby shows.
  void SetUsersInGame(std::uint32_t count, TimePoint now);

 private:
  void Broadcast(const Packet& packet);
  // Sends everybody the lists if they have changed and the last sending is long enough ago; whether it did.
  bool ShareListsIfDue(TimePoint now);
  PacketChatUsers MakeList() const;
  // Sends the list that MakeList made, changed where the session would not find itself in it.
  void SendLists(Session& session, const PacketChatUsers& list) const;

  // In alphabetical order.
  std::vector<Session*> mMembers;
  std::uint8_t mDarkness = 0;
  std::uint32_t mUsersInGame = 0;
  RateLimiter mLines;
  RateLimiter mShared;
  bool mListsChanged = false;
};

}  // namespace tolva
