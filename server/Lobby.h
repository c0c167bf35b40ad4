#pragma once

#include <vector>

#include "protocol/ChatPackets.h"
#include "server/FloodGuard.h"
#include "server/Place.h"

namespace tolva {

// The chat that everybody comes to after the login and returns to from the world.
class Lobby final : public Place {
 public:
  Lobby();

  void Enter(Session& session, TimePoint now) override;
  void Leave(Session& session, TimePoint now) override;
  void Say(Session& session, const std::string& line, TimePoint now) override;
  void Handle(Session&, const Packet&, TimePoint) override {}
  void SetDarkness(std::uint8_t darkness) override;
  void Tick(TimePoint now) override { ShareListsIfDue(now); }

  // How many users are out in the world, which the lobby shows.
  void SetUsersInGame(std::uint32_t count, TimePoint now);

 private:
  void Broadcast(const Packet& packet);
  bool ShareListsIfDue(TimePoint now);
  PacketChatUsers MakeList() const;
  // The list as this session sees it, made from the one that MakeList made.
  void SendLists(Session& session, const PacketChatUsers& list) const;

  // In alphabetical order.
  std::vector<Session*> mMembers;
  std::uint8_t mDarkness = 0;
  std::uint32_t mUsersInGame = 0;
  FloodGuard mLines;
  FloodGuard mShared;
  bool mListsChanged = false;
};

}  // namespace tolva
