#include "tools/bots/MoveBook.h"

#include <algorithm>

namespace tolva {

void MoveBook::Ask(WorldPoint from, Direction direction, TimePoint now) {
  if (!mIsOpen) return;
  ++mAsked;
  mAsks[from][static_cast<std::size_t>(direction)] = now;
}

void MoveBook::SeeOwn(WorldPoint from, Direction direction, TimePoint now) {
  if (const auto latency = Find(from, direction, now)) mOwn.Add(*latency);
}

void MoveBook::SeeOther(WorldPoint from, Direction direction, TimePoint now) {
  if (const auto latency = Find(from, direction, now)) mOthers.Add(*latency);
}

void MoveBook::CountInSight(std::size_t count) {
  if (mIsOpen) mMaxInSight = std::max(mMaxInSight, count);
}

std::optional<Duration> MoveBook::Find(WorldPoint from, Direction direction, TimePoint now) const {
  const auto asks = mAsks.find(from);
  if (asks == mAsks.end() || !IsDirection(direction)) return std::nullopt;
  const auto& asked = asks->second[static_cast<std::size_t>(direction)];
  return asked ? std::optional(now - *asked) : std::nullopt;
}

}  // namespace tolva
