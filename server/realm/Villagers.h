#pragma once

#include <list>
#include <random>
#include <unordered_set>

#include "server/realm/ArrivalFields.h"

namespace tolva {

// Each villager has a name and a trade.
constexpr std::size_t kMaxVillagers = 12;

// The people of the village where players arrive. While a player is near, they stroll around their homes, stop where
// they are in nobody's way, and now and then say something.
class Villagers {
 public:
  // Puts the first `count` of them, at most kMaxVillagers, into the crowd, which must outlive them. The same seed
  // gives the same walks.
  Villagers(Crowd& crowd, const ArrivalFields& fields, std::size_t count, std::uint64_t seed, TimePoint now);

  // To be called several times a second.
  void Tick(TimePoint now);

 private:
  struct Villager {
    WorldCharacter character;
    WorldPoint home;
    Direction direction = Direction::South;
    int stepsLeft = 0;
    bool isResting = false;
    TimePoint next;
  };

  void Stroll(Villager& villager, TimePoint now);
  bool TryStep(Villager& villager, Direction direction, TimePoint now);
  // Takes the next step of the current walk, or turns when the way is blocked.
  void TakeStep(Villager& villager, TimePoint now);
  // Whether a villager who stops there blocks neither a passage nor arriving players.
  bool IsGoodToStop(WorldPoint point);
  void Talk(TimePoint now);
  // A random number from `first` to `last`.
  int Pick(int first, int last);
  Direction PickDirection();

  Crowd& mCrowd;
  std::list<Villager> mVillagers;
  std::unordered_set<WorldPoint, WorldPointHash> mSquare;
  std::minstd_rand mRandom;
  TimePoint mNextLine;
};

}  // namespace tolva
