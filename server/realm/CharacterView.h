#pragma once

#include <deque>
#include <optional>
#include <string>
#include <unordered_map>

#include "protocol/Direction.h"
#include "server/common/PacketSink.h"
#include "server/common/RateLimiter.h"
#include "server/realm/CharacterIndex.h"

namespace tolva {

// How far people see and hear, in fields along each axis.
constexpr std::int64_t kSight = 32;

// The other characters as one player's client shows them, kept in step with the world by at most 40 packets a second.
// When more happens, the client falls behind: characters wait in a queue to be corrected, and one correction makes up
// for all that a character has done in the meantime. A client's field holds one character, and the client drops any
// packet that would put a second one there. So before a character is put on a field, any other that the client still
// shows there is removed.
class CharacterView {
 public:
  // All three must outlive the view. The client must know its own position, and no other character yet.
  CharacterView(PacketSink& client, const WorldCharacter& own, const CharacterIndex& index);

  // A character has come, moved or gone.
  void Notice(CharacterId id, TimePoint now);
  // The player's own character has appeared or moved: everybody near, and everybody shown, may be in or out of sight
  // now.
  void LookAround(TimePoint now);
  // Sends the step of the own character from where it stands. To be called before the index knows of the step.
  void ShowOwnStep(Direction direction, TimePoint now);
  // Sends the corrections that had to wait. To be called several times a second.
  void CatchUp(TimePoint now);
  // Sends a line spoken by somebody near or by the own character; false when it comes on top of more lines than a
  // player can read.
  bool Hear(const WorldCharacter& speaker, const std::string& line, TimePoint now);

 private:
  struct Entry {
    // Where the client shows the character, if it does.
    std::optional<WorldPoint> shown;
    bool isWaiting = false;
  };

  bool IsInSight(WorldPoint point) const;
  // Where the client should show the character, if it should.
  std::optional<WorldPoint> FindTarget(CharacterId id) const;
  void Queue(CharacterId id);
  // Makes the client show the character where it is; false when that takes more packets than may be sent now.
  bool Correct(CharacterId id, TimePoint now);
  void Hide(CharacterId id, TimePoint now);
  void Show(CharacterId id, WorldPoint point, TimePoint now);
  void Walk(CharacterId id, WorldPoint from, WorldPoint to, TimePoint now);
  // Drops the characters outside the client's map, which has dropped them too.
  void ForgetOutsideMap();

  PacketSink& mClient;
  const WorldCharacter& mOwn;
  const CharacterIndex& mIndex;
  std::unordered_map<CharacterId, Entry> mEntries;
  std::unordered_map<WorldPoint, CharacterId, WorldPointHash> mShownAt;
  std::deque<CharacterId> mWaiting;
  RateLimiter mPackets;
  RateLimiter mLines;
};

}  // namespace tolva
