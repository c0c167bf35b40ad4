#include "server/realm/AreaCourier.h"

#include <memory>

#include "protocol/FieldPosition.h"
#include "server/Session.h"

namespace tolva {
namespace {

// 16 areas are 84 KB, a third of what a connection queues. A client asks for ten a second.
constexpr std::size_t kAnswersAtOnce = 16;
constexpr auto kAnswersWindow = std::chrono::milliseconds(250);
// A map and the edges of a walk all around it; more waits at no honest client.
constexpr std::size_t kMostWaiting = 128;
// The player may have walked into the next area while the question was on its way, and asks for the map's edge there.
constexpr std::int64_t kReach = 4;

}  // namespace

AreaCourier::AreaCourier(World& world, Session& session)
    : mWorld(world), mSession(session), mAnswers(kAnswersAtOnce, kAnswersWindow) {}

void AreaCourier::Ask(const AreaHeader& question, WorldPoint own, TimePoint now) {
  const FieldPosition corner{question, 0, 0};
  if (!IsInRange(corner) || question.mByLevel != kGroundLevel || mWaiting.size() >= kMostWaiting) return;
  mWaiting.push_back({question, DistanceInAreas(ToPoint(corner), own) <= kReach});
  Work(now);
}

void AreaCourier::Work(TimePoint now) {
  while (!mWaiting.empty() && mAnswers.Allow(now)) {
    Answer(mWaiting.front());
    mWaiting.pop_front();
  }
}

void AreaCourier::Answer(const Question& question) {
  const auto content = question.isNear ? mWorld.GetArea(question.header) : nullptr;
  if (content != nullptr && content->version != question.header.mByVersion) return SendArea(question.header, *content);
  PacketAreaVersion current;
  static_cast<AreaHeader&>(current) = question.header;
  mSession.Send(current);
}

void AreaCourier::SendArea(const AreaHeader& area, const AreaContent& content) {
  const auto ground = std::make_unique<PacketAreaGround>();
  static_cast<AreaHeader&>(*ground) = area;
  // A client that is cut off between the two then asks for both again.
  ground->mByVersion = 0;
  ground->mUintGround = content.ground;
  ground->mBySmoothness = content.smoothness;
  mSession.Send(*ground);

  const auto volu = std::make_unique<PacketAreaVolu>();
  static_cast<AreaHeader&>(*volu) = area;
  volu->mByVersion = content.version;
  volu->mUintVolu = content.volu;
  mSession.Send(*volu);
}

}  // namespace tolva
