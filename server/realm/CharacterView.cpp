#include "server/realm/CharacterView.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "protocol/GamePackets.h"
#include "server/Session.h"

namespace tolva {
namespace {

// A client takes about 200 packets a second, of all kinds.
constexpr std::size_t kPacketsPerSecond = 40;
constexpr std::size_t kLinesPerSecond = 50;
// Kept free for clearing the field that the own character steps on, which cannot wait.
constexpr std::size_t kReserve = 3;
// Areas from the middle of a client's map to its edge.
constexpr std::int64_t kMapReach = 3;

template <typename PacketType>
PacketType At(WorldPoint point) {
  PacketType packet;
  static_cast<FieldPosition&>(packet) = ToPosition(point);
  return packet;
}

PacketMove MakeMove(WorldPoint from, Direction direction) {
  auto move = At<PacketMove>(from);
  move.mEnmDirection = direction;
  return move;
}

}  // namespace

CharacterView::CharacterView(Session& session, const WorldCharacter& own, const CharacterIndex& index)
    : mSession(session),
      mOwn(own),
      mIndex(index),
      mPackets(kPacketsPerSecond, std::chrono::seconds(1)),
      mLines(kLinesPerSecond, std::chrono::seconds(1)) {}

void CharacterView::Notice(CharacterId id, TimePoint now) {
  Queue(id);
  CatchUp(now);
}

void CharacterView::LookAround(TimePoint now) {
  ForgetBeyondMap();
  for (auto& [id, entry] : mEntries)
    if (entry.shown && !IsInSight(*entry.shown)) Queue(id);
  for (const WorldCharacter* character : mIndex.FindNear(mOwn.point, kSight))
    if (character != &mOwn && !mEntries.contains(character->id)) Queue(character->id);
  CatchUp(now);
}

void CharacterView::ShowOwnStep(Direction direction, TimePoint now) {
  // Nobody stands there any more, but the client may not know yet, and would not let its player pass.
  if (const auto found = mShownAt.find(Next(mOwn.point, direction)); found != mShownAt.end()) Hide(found->second, now);
  mSession.Send(MakeMove(mOwn.point, direction));
}

void CharacterView::CatchUp(TimePoint now) {
  while (!mWaiting.empty() && SetRight(mWaiting.front(), now)) {
    const auto done = mEntries.find(mWaiting.front());
    mWaiting.pop_front();
    done->second.isWaiting = false;
    if (!done->second.shown) mEntries.erase(done);
  }
}

bool CharacterView::Hear(const WorldCharacter& speaker, const std::string& line, TimePoint now) {
  if (!mLines.Allow(now)) return false;
  const auto entry = mEntries.find(speaker.id);
  const bool isShown = entry != mEntries.end() && entry->second.shown;
  // Without a place to speak from, or the line would appear above whoever the client shows there.
  if (&speaker != &mOwn && !isShown) {
    mSession.Send(PacketChatMsg(speaker.name.c_str(), line.c_str()));
    return true;
  }
  auto packet = At<PacketGameChatMsg>(isShown ? *entry->second.shown : mOwn.point);
  CopyText(packet.mStrUser, speaker.name.c_str());
  CopyText(packet.mStrMsg, line.c_str());
  mSession.Send(packet);
  return true;
}

bool CharacterView::IsInSight(WorldPoint point) const { return Distance(mOwn.point, point) <= kSight; }

std::optional<WorldPoint> CharacterView::GetWanted(CharacterId id) const {
  const WorldCharacter* character = mIndex.Find(id);
  if (character == nullptr || !IsInSight(character->point)) return std::nullopt;
  return character->point;
}

void CharacterView::Queue(CharacterId id) {
  if (std::exchange(mEntries[id].isWaiting, true)) return;
  mWaiting.push_back(id);
}

bool CharacterView::SetRight(CharacterId id, TimePoint now) {
  const std::optional<WorldPoint> shown = mEntries[id].shown;
  const std::optional<WorldPoint> wanted = GetWanted(id);
  if (shown == wanted) return true;
  const bool isStep = shown && wanted && IsInSight(*shown) && Distance(*shown, *wanted) == 1;
  const auto inTheWay = wanted ? mShownAt.find(*wanted) : mShownAt.end();
  const std::size_t cost = (inTheWay != mShownAt.end() ? 1U : 0U) + (isStep || !shown || !wanted ? 1U : 2U);
  if (!mPackets.HasRoomFor(cost + kReserve, now)) return false;

  if (inTheWay != mShownAt.end()) Hide(inTheWay->second, now);
  if (isStep) {
    Walk(id, *shown, *wanted, now);
    return true;
  }
  if (shown) Hide(id, now);
  if (wanted) Show(id, *wanted, now);
  return true;
}

void CharacterView::Hide(CharacterId id, TimePoint now) {
  Entry& entry = mEntries[id];
  mPackets.Allow(now);
  mSession.Send(At<PacketRemoveChar>(*entry.shown));
  mShownAt.erase(*entry.shown);
  entry.shown.reset();
  Queue(id);
}

void CharacterView::Show(CharacterId id, WorldPoint point, TimePoint now) {
  mPackets.Allow(now);
  mSession.Send(At<PacketAddChar>(point));
  mEntries[id].shown = point;
  mShownAt[point] = id;
}

void CharacterView::Walk(CharacterId id, WorldPoint from, WorldPoint to, TimePoint now) {
  mPackets.Allow(now);
  mSession.Send(MakeMove(from, DirectionTo(from, to)));
  mEntries[id].shown = to;
  mShownAt.erase(from);
  mShownAt[to] = id;
}

void CharacterView::ForgetBeyondMap() {
  for (auto& [id, entry] : mEntries) {
    if (!entry.shown || DistanceInAreas(mOwn.point, *entry.shown) <= kMapReach) continue;
    mShownAt.erase(*entry.shown);
    entry.shown.reset();
    Queue(id);
  }
}

}  // namespace tolva
