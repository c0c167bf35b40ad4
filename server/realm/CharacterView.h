#pragma once

#include <deque>
#include <optional>
#include <string>
#include <unordered_map>

#include "server/FloodGuard.h"
#include "server/realm/CharacterIndex.h"

namespace tolva {

class Session;

// How far people see and hear, in fields each way.
constexpr std::int64_t kSight = 32;

// The other characters as one player's client shows them, kept in step with the world by at most 40 packets a second.
// When more happens than that, the client falls behind, those waiting longest are set right first, and what happened
// meanwhile to each is made up for at once. A client's field takes one character, so no packet of ours ever puts
// somebody where the client still shows somebody else: the client would drop it and stay wrong for ever.
class CharacterView {
 public:
  // All three must outlive the view. The client must have been told its own place, and no other character yet.
  CharacterView(Session& session, const WorldCharacter& own, const CharacterIndex& index);

  // Something about a character may have changed: it came, moved or went.
  void Notice(CharacterId id, TimePoint now);
  // Everybody near, and everybody shown, may be in or out of sight now. For after the own character came or stepped.
  void LookAround(TimePoint now);
  // Tells the client of its own character's step from where it stands. To be called before the index knows of it.
  void ShowOwnStep(Direction direction, TimePoint now);
  // Goes on with what had to wait. To be called several times a second.
  void CatchUp(TimePoint now);
  // A line spoken by somebody near or by the own character; false when too many are talking for one more to be read.
  bool Hear(const WorldCharacter& speaker, const std::string& line, TimePoint now);

 private:
  struct Entry {
    // Where the client shows the character, if it does.
    std::optional<WorldPoint> shown;
    bool isWaiting = false;
  };

  bool IsInSight(WorldPoint point) const;
  // Where the client should show the character.
  std::optional<WorldPoint> GetWanted(CharacterId id) const;
  void Queue(CharacterId id);
  // Makes the client show what it should; false when that takes more packets than may be sent now.
  bool SetRight(CharacterId id, TimePoint now);
  void Hide(CharacterId id, TimePoint now);
  void Show(CharacterId id, WorldPoint point, TimePoint now);
  void Walk(CharacterId id, WorldPoint from, WorldPoint to, TimePoint now);
  // Whom the client's map has left behind it has dropped by itself.
  void ForgetBeyondMap();

  Session& mSession;
  const WorldCharacter& mOwn;
  const CharacterIndex& mIndex;
  std::unordered_map<CharacterId, Entry> mEntries;
  std::unordered_map<WorldPoint, CharacterId, WorldPointHash> mShownAt;
  std::deque<CharacterId> mWaiting;
  FloodGuard mPackets;
  FloodGuard mLines;
};

}  // namespace tolva
