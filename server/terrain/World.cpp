#include "server/terrain/World.h"

namespace tolva {
namespace {

// What some dozens of players see at once; 12 MB.
constexpr std::size_t kMaxAreas = 2048;

}  // namespace

std::shared_ptr<const AreaContent> World::GetArea(const AreaPosition& area) {
  const WorldPoint firstField = FirstFieldOf(area);
  if (const auto known = mKnown.find(firstField); known != mKnown.end()) {
    mRecent.splice(mRecent.begin(), mRecent, known->second);
    return known->second->content;
  }
  mRecent.push_front({firstField, mPainter.Paint(area)});
  mKnown[firstField] = mRecent.begin();
  if (mRecent.size() > kMaxAreas) {
    mKnown.erase(mRecent.back().firstField);
    mRecent.pop_back();
  }
  return mRecent.front().content;
}

bool World::IsWalkable(const FieldPosition& field) {
  return IsInRange(field) && !GetArea(field)->blocked[AreaContent::IndexOf(field.mByFx, field.mByFy)];
}

}  // namespace tolva
