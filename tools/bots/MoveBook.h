#pragma once

#include <array>
#include <optional>
#include <unordered_map>

#include "protocol/WorldPoint.h"
#include "tools/bots/Latencies.h"

namespace tolva {

// What all bots together asked for and saw. Two of them never stand on one field, so where a move begins tells whose it
// is. Counts only from Open on.
class MoveBook {
 public:
  void Open() { mIsOpen = true; }

  void Ask(WorldPoint from, Direction direction, TimePoint now);
  // The mover's own move arrived.
  void SeeOwn(WorldPoint from, Direction direction, TimePoint now);
  // Somebody else's move arrived. Villagers move too, and never asked.
  void SeeOther(WorldPoint from, Direction direction, TimePoint now);
  void CountInSight(std::size_t count);

  std::size_t GetAskedCount() const { return mAsked; }
  std::size_t GetMostInSight() const { return mMostInSight; }
  const Latencies& GetOwn() const { return mOwn; }
  const Latencies& GetOthers() const { return mOthers; }

 private:
  using Asks = std::array<std::optional<TimePoint>, kDirectionCount>;

  std::optional<Duration> Find(WorldPoint from, Direction direction, TimePoint now) const;

  bool mIsOpen = false;
  std::size_t mAsked = 0;
  std::size_t mMostInSight = 0;
  Latencies mOwn, mOthers;
  // The last time that each step was asked for.
  std::unordered_map<WorldPoint, Asks, WorldPointHash> mAsks;
};

}  // namespace tolva
