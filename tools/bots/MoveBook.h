#pragma once

#include <array>
#include <optional>
#include <unordered_map>

#include "protocol/WorldPoint.h"
#include "tools/bots/Latencies.h"

namespace tolva {

// The steps that all bots together have requested and seen. No two bots stand on one field, so the field where a move
// begins identifies the mover. Records nothing before Open.
class MoveBook {
 public:
  void Open() { mIsOpen = true; }

  void Ask(WorldPoint from, Direction direction, TimePoint now);
  // The mover's own move arrived.
  void SeeOwn(WorldPoint from, Direction direction, TimePoint now);
  // Somebody else's move arrived. Moves of villagers have no request and do not count.
  void SeeOther(WorldPoint from, Direction direction, TimePoint now);
  void CountInSight(std::size_t count);

  std::size_t GetAskedCount() const { return mAsked; }
  std::size_t GetMaxInSight() const { return mMaxInSight; }
  const Latencies& GetOwn() const { return mOwn; }
  const Latencies& GetOthers() const { return mOthers; }

 private:
  using Asks = std::array<std::optional<TimePoint>, kDirectionCount>;

  std::optional<Duration> Find(WorldPoint from, Direction direction, TimePoint now) const;

  bool mIsOpen = false;
  std::size_t mAsked = 0;
  std::size_t mMaxInSight = 0;
  Latencies mOwn, mOthers;
  // When the step in each direction was last requested.
  std::unordered_map<WorldPoint, Asks, WorldPointHash> mAsks;
};

}  // namespace tolva
