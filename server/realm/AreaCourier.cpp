#include "server/realm/AreaCourier.h"

#include <memory>

#include "protocol/FieldPosition.h"

namespace tolva {
namespace {

// A map, and the new edges of a walk once around it. An honest client never has more requests waiting.
constexpr std::size_t kMaxWaiting = 128;
// One more than the map reaches: the player may step into the next area, and ask for the map's edge there, while a
// request is in flight.
constexpr std::int64_t kReach = kMapCenter + 1;  // areas

}  // namespace

void AreaCourier::Ask(const AreaHeader& request, WorldPoint own, TimePoint now) {
  const FieldPosition corner{request, 0, 0};
  if (!IsInRange(corner) || request.mByLevel != kGroundLevel || mWaiting.size() >= kMaxWaiting) return;
  mWaiting.push_back({request, DistanceInAreas(ToPoint(corner), own) <= kReach});
  Work(now);
}

void AreaCourier::Work(TimePoint now) {
  while (!mWaiting.empty() && mAnswers.Allow(now)) {
    Answer(mWaiting.front());
    mWaiting.pop_front();
  }
}

void AreaCourier::Answer(const Request& request) {
  const auto content = request.isNear ? mWorld.GetArea(request.area) : nullptr;
  if (content != nullptr && content->version != request.area.mByVersion) return SendArea(request.area, *content);
  mClient.Send(PacketAreaVersion(request.area));
}

void AreaCourier::SendArea(const AreaPosition& area, const AreaContent& content) {
  // Version 0, so that a client that is cut off between the two packets asks for both again.
  const auto ground = std::make_unique<PacketAreaGround>(AreaHeader{area, 0});
  ground->mUintGround = content.ground;
  ground->mBySmoothness = content.smoothness;
  mClient.Send(*ground);

  const auto volu = std::make_unique<PacketAreaVolu>(AreaHeader{area, content.version});
  volu->mUintVolu = content.volu;
  mClient.Send(*volu);
}

}  // namespace tolva
