#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "server/Room.h"
#include "server/realm/AreaCourier.h"
#include "server/realm/ArrivalFields.h"
#include "server/realm/CharacterView.h"
#include "server/realm/Crowd.h"
#include "server/realm/LastPlaces.h"
#include "server/realm/Villagers.h"
#include "server/terrain/World.h"

namespace tolva {

// The world, where players walk, see and hear each other. It has one level and no borders. What it keeps grows only
// with the number of players in it.
class Realm final : public Room {
 public:
  Realm(std::uint64_t worldSeed, std::size_t villagers, TimePoint now);

  // Whether there is a field for one more player.
  bool HasRoom() const { return mFields.FindFree().has_value(); }

  // There must be room.
  void Enter(Session& session, TimePoint now) override;
  void Leave(Session& session, TimePoint now) override;
  // Heard by all who are near.
  void Say(Session& session, const std::string& line, TimePoint now) override;
  // Steps and requests for areas.
  void Handle(Session& session, const Packet& packet, TimePoint now) override;
  // Sent on in steps of ten, because a client redraws all its ground for each.
  void SetDarkness(std::uint8_t darkness) override;
  void Tick(TimePoint now) override;

  std::size_t GetPlayerCount() const { return mPlayers.size(); }
  // In no particular order.
  std::vector<std::string> GetPlayerNames() const;

 private:
  struct Player {
    Player(Session& ownSession, World& world, const Crowd& crowd, WorldPoint point);

    Session& session;
    WorldCharacter character;
    CharacterView view;
    AreaCourier areas;
    RateLimiter steps;
  };

  void Step(Player& player, Direction direction, TimePoint now);
  WorldPoint FindFieldFor(const std::string& name) const;
  void SendDarkness(Session& session) const;

  World mWorld;
  Crowd mCrowd{mWorld};
  ArrivalFields mFields;
  Villagers mVillagers;
  LastPlaces mLastPlaces;
  std::unordered_map<const Session*, std::unique_ptr<Player>> mPlayers;
  std::uint8_t mDarkness = 0;
};

}  // namespace tolva
