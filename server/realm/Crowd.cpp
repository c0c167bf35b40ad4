#include "server/realm/Crowd.h"

#include <algorithm>

#include "protocol/FieldPosition.h"
#include "server/realm/CharacterView.h"

namespace tolva {

void Crowd::Join(WorldCharacter& character, TimePoint now) {
  character.id = ++mLastId;
  mIndex.Add(character);
  Notify(character, now);
  if (character.view != nullptr) character.view->LookAround(now);
}

void Crowd::Leave(WorldCharacter& character, TimePoint now) {
  mIndex.Remove(character);
  Notify(character, now);
}

bool Crowd::Step(WorldCharacter& character, Direction direction, TimePoint now) {
  if (!IsWay(character.point, direction)) return false;
  const WorldPoint to = Next(character.point, direction);
  if (IsTaken(to)) return false;
  if (character.view != nullptr) character.view->ShowOwnStep(direction, now);
  mIndex.Move(character, to);
  Notify(character, now);
  if (character.view != nullptr) character.view->LookAround(now);
  return true;
}

bool Crowd::Say(WorldCharacter& speaker, const std::string& line, TimePoint now) {
  // When lines come too fast for the speaker to read, they do for those nearby, too.
  if (speaker.view != nullptr && !speaker.view->Hear(speaker, line, now)) return false;
  for (const WorldCharacter* listener : mIndex.FindNear(speaker.point, kSight))
    if (listener != &speaker && listener->view != nullptr) listener->view->Hear(speaker, line, now);
  return true;
}

bool Crowd::IsWay(WorldPoint from, Direction direction) {
  const auto isWalkable = [this](WorldPoint point) { return mWorld.IsWalkable(ToPosition(point)); };
  if (!IsDirection(direction) || !isWalkable(Next(from, direction))) return false;
  // Two blocked fields that meet at a corner leave no gap.
  const auto step = StepIn(direction);
  return step.x == 0 || step.y == 0 || isWalkable(Moved(from, step.x, 0)) || isWalkable(Moved(from, 0, step.y));
}

bool Crowd::IsPlayerNear(WorldPoint point, std::int64_t distance) const {
  return std::ranges::any_of(mIndex.FindNear(point, distance),
                             [](const WorldCharacter* other) { return other->view != nullptr; });
}

void Crowd::Notify(const WorldCharacter& character, TimePoint now) {
  // One field farther than people see, for those whose sight the character has just left. A view that shows it even
  // farther away has already queued it.
  for (const WorldCharacter* viewer : mIndex.FindNear(character.point, kSight + 1))
    if (viewer != &character && viewer->view != nullptr) viewer->view->Notice(character.id, now);
}

}  // namespace tolva
