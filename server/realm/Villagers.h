#pragma once

#include <list>
#include <random>
#include <unordered_set>

#include "server/realm/ArrivalFields.h"

namespace tolva {

// Most villagers: each has a name and a trade of its own.
constexpr std::size_t kMostVillagers = 12;

// The people of the village where players arrive: they stroll around their homes, stop where they are in nobody's way,
// and now and then say something. They do so only while a player is near to see it.
class Villagers {
 public:
  // Puts the first `count` of them, at most kMostVillagers, into the crowd, which must outlive them. The same seed
  // gives the same strolls.
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
  // Whether somebody who stops there blocks neither a passage nor those who arrive.
  bool IsGoodToStop(WorldPoint point);
  void Talk(TimePoint now);
  int Pick(int from, int to);

  Crowd& mCrowd;
  std::list<Villager> mVillagers;
  std::unordered_set<WorldPoint, WorldPointHash> mSquare;
  std::minstd_rand mRandom;
  TimePoint mNextLine;
};

}  // namespace tolva
