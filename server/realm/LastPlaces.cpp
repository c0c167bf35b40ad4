#include "server/realm/LastPlaces.h"

#include "server/common/ChatText.h"

namespace tolva {
namespace {

constexpr std::size_t kMaxNames = 4096;

}  // namespace

void LastPlaces::Remember(const std::string& name, WorldPoint point) {
  const auto [place, isNew] = mPlaces.insert_or_assign(FoldCase(name), point);
  if (!isNew) return;
  mNames.push_back(place->first);
  if (mNames.size() <= kMaxNames) return;
  mPlaces.erase(mNames.front());
  mNames.pop_front();
}

std::optional<WorldPoint> LastPlaces::Find(const std::string& name) const {
  const auto found = mPlaces.find(FoldCase(name));
  if (found == mPlaces.end()) return std::nullopt;
  return found->second;
}

}  // namespace tolva
