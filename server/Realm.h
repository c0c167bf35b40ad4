#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "server/Place.h"
#include "server/realm/AreaCourier.h"
#include "server/realm/ArrivalFields.h"
#include "server/realm/CharacterView.h"
#include "server/realm/Crowd.h"
#include "server/realm/LastPlaces.h"
#include "server/realm/Villagers.h"
#include "server/terrain/World.h"

namespace tolva {

// The world, where players walk, see and hear each other. A level, a size or an end it has none: what it keeps grows
// with those who are in it alone.
class Realm final : public Place {
 public:
  Realm(std::uint64_t worldSeed, std::size_t villagers, TimePoint now);

  // Whether there is a field for one more.
  bool HasRoom() const { return mFields.FindFree().has_value(); }

  // There must be room.
  void Enter(Session& session, TimePoint now) override;
  void Leave(Session& session, TimePoint now) override;
  // Heard by all who are near.
  void Say(Session& session, const std::string& line, TimePoint now) override;
  // Steps and questions for areas.
  void Handle(Session& session, const Packet& packet, TimePoint now) override;
  // Shown in steps of ten, since a client draws all its ground anew for each.
  void SetDarkness(std::uint8_t darkness) override;
  void Tick(TimePoint now) override;

  std::size_t GetPlayerCount() const { return mPlayers.size(); }
  // In no order.
  std::vector<std::string> GetPlayerNames() const;

 private:
  struct Player {
    Player(Session& itsSession, World& world, const Crowd& crowd, WorldPoint point);

    Session& session;
    WorldCharacter character;
    CharacterView view;
    AreaCourier areas;
    FloodGuard steps;
  };

  WorldPoint FindPlaceFor(const std::string& name) const;
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
