#include "server/realm/CharacterView.h"

#include <algorithm>
#include <utility>

#include "protocol/GamePackets.h"

namespace tolva {
namespace {

// A client takes about 200 packets a second, of all kinds.
constexpr std::size_t kPacketsPerSecond = 40;
constexpr std::size_t kLinesPerSecond = 50;
// Kept free for clearing the field that the own character steps on, which cannot wait.
constexpr std::size_t kReservedPackets = 3;

}  // namespace

CharacterView::CharacterView(PacketSink& client, const WorldCharacter& own, const CharacterIndex& index)
    : mClient(client),
      mOwn(own),
      mIndex(index),
      mPackets(kPacketsPerSecond, std::chrono::seconds(1)),
      mLines(kLinesPerSecond, std::chrono::seconds(1)) {}

void CharacterView::Notice(CharacterId id, TimePoint now) {
  Queue(id);
  CatchUp(now);
}

void CharacterView::LookAround(TimePoint now) {
  ForgetOutsideMap();
  for (auto& [id, entry] : mEntries)
    if (entry.shown && !IsInSight(*entry.shown)) Queue(id);
  for (const WorldCharacter* character : mIndex.FindNear(mOwn.point, kSight))
    if (character != &mOwn && !mEntries.contains(character->id)) Queue(character->id);
  CatchUp(now);
}

void CharacterView::ShowOwnStep(Direction direction, TimePoint now) {
  // The field is free, but the client may still show somebody there and would not let its player pass.
  if (const auto found = mShownAt.find(Next(mOwn.point, direction)); found != mShownAt.end()) Hide(found->second, now);
  mClient.Send(PacketMove(ToPosition(mOwn.point), direction));
}

void CharacterView::CatchUp(TimePoint now) {
  while (!mWaiting.empty() && Correct(mWaiting.front(), now)) {
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
  // A client shows the line above the character on the given field, and it shows this speaker on none.
  if (&speaker != &mOwn && !isShown) {
    mClient.Send(PacketChatMsg(speaker.name.c_str(), line.c_str()));
    return true;
  }
  const WorldPoint field = isShown ? *entry->second.shown : mOwn.point;
  mClient.Send(PacketGameChatMsg(ToPosition(field), speaker.name.c_str(), line.c_str()));
  return true;
}

bool CharacterView::IsInSight(WorldPoint point) const { return Distance(mOwn.point, point) <= kSight; }

std::optional<WorldPoint> CharacterView::FindTarget(CharacterId id) const {
  const WorldCharacter* character = mIndex.Find(id);
  if (character == nullptr || !IsInSight(character->point)) return std::nullopt;
  return character->point;
}

void CharacterView::Queue(CharacterId id) {
  if (std::exchange(mEntries[id].isWaiting, true)) return;
  mWaiting.push_back(id);
}

bool CharacterView::Correct(CharacterId id, TimePoint now) {
  const std::optional<WorldPoint> shown = mEntries[id].shown;
  const std::optional<WorldPoint> target = FindTarget(id);
  if (shown == target) return true;
  const bool isStep = shown && target && IsInSight(*shown) && Distance(*shown, *target) == 1;
  const auto inTheWay = target ? mShownAt.find(*target) : mShownAt.end();
  const std::size_t cost = (inTheWay != mShownAt.end() ? 1U : 0U) + (isStep || !shown || !target ? 1U : 2U);
  if (!mPackets.HasRoomFor(cost + kReservedPackets, now)) return false;

  if (inTheWay != mShownAt.end()) Hide(inTheWay->second, now);
  if (isStep) {
    Walk(id, *shown, *target, now);
    return true;
  }
  if (shown) Hide(id, now);
  if (target) Show(id, *target, now);
  return true;
}

void CharacterView::Hide(CharacterId id, TimePoint now) {
  Entry& entry = mEntries[id];
  mPackets.Allow(now);
  mClient.Send(PacketRemoveChar(ToPosition(*entry.shown)));
  mShownAt.erase(*entry.shown);
  entry.shown.reset();
  Queue(id);
}

void CharacterView::Show(CharacterId id, WorldPoint point, TimePoint now) {
  mPackets.Allow(now);
  mClient.Send(PacketAddChar(ToPosition(point)));
  mEntries[id].shown = point;
  mShownAt[point] = id;
}

void CharacterView::Walk(CharacterId id, WorldPoint from, WorldPoint to, TimePoint now) {
  mPackets.Allow(now);
  mClient.Send(PacketMove(ToPosition(from), DirectionTo(from, to)));
  mEntries[id].shown = to;
  mShownAt.erase(from);
  mShownAt[to] = id;
}

void CharacterView::ForgetOutsideMap() {
  for (auto& [id, entry] : mEntries) {
    if (!entry.shown || DistanceInAreas(mOwn.point, *entry.shown) <= kMapCenter) continue;
    mShownAt.erase(*entry.shown);
    entry.shown.reset();
    Queue(id);
  }
}

}  // namespace tolva
