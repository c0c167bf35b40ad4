#pragma once

#include <cstdint>

#include "foundation/Ticks.h"
#include "world/Character.h"

namespace tolva {

// A character as the game view draws it: sliding from field to field, walking, speaking. Offsets are pixels from where
// the character's field is drawn, y growing downwards; ticks are those of GetTicks. Reached under the
// repository's lock only.
class ClientCharacter : public Character {
 public:
  // The character on the field, or null.
  static ClientCharacter* On(const Field& field);

  // Faces the direction and begins to slide from the field it came from to the one it stands on.
  void StartMove(Direction direction, std::uint32_t now = GetTicks());
  // Moves on by at most one slide step and one walking frame, as time allows. For every frame drawn.
  void Animate(std::uint32_t now = GetTicks());

  bool IsMoving() const { return mMoving; }
  // The walking frame, 0 to 4.
  std::int32_t GetFrame() const { return mFrame; }
  std::int32_t GetOffsetX() const { return mOffsetX; }
  std::int32_t GetOffsetY() const { return mOffsetY; }

  // What it said last, by which name it was said, and when that arrived. Longer texts are cut to 1023 and 63.
  const char* GetChatMessage() const { return mChatMessage; }
  void SetChatMessage(const char* message);
  const char* GetName() const { return mName; }
  void SetName(const char* name);
  std::uint32_t GetMessageTick() const { return mMessageTick; }
  void SetMessageTick(std::uint32_t tick) { mMessageTick = tick; }

 private:
  void AdvanceFrame(std::uint32_t now);

  bool mMoving = false;
  std::uint32_t mStepTick = 0;
  std::uint32_t mFrameTick = 0;
  std::int32_t mFrame = 0;
  std::int32_t mStepsLeft = 0;
  std::int32_t mStartX = 0;
  std::int32_t mStartY = 0;
  std::int32_t mOffsetX = 0;
  std::int32_t mOffsetY = 0;
  char mChatMessage[1024] = "";
  char mName[64] = "";
  std::uint32_t mMessageTick = 0;
};

}  // namespace tolva
