#pragma once

#include <cstdint>

#include "foundation/Ticks.h"
#include "world/Character.h"

namespace tolva {

// A character as the game view draws it: sliding from field to field, walking, speaking. Offsets are in pixels from the
// place of its field on the screen, y growing downward; ticks are those of GetTicks. Used under the repository's lock
// only.
class ClientCharacter : public Character {
 public:
  // The character on the field, or null.
  static ClientCharacter* On(const Field& field);

  // Turns to the direction and begins to slide from the field it left to the one it stands on.
  void StartMove(Direction direction, std::uint32_t now = GetTicks());
  // Advances by at most one slide step and one walking frame, if they are due. Call it for every frame drawn.
  void Animate(std::uint32_t now = GetTicks());

  bool IsMoving() const { return mMoving; }
  // The walking frame, 0 to 4.
  std::int32_t GetFrame() const { return mFrame; }
  std::int32_t GetOffsetX() const { return mOffsetX; }
  std::int32_t GetOffsetY() const { return mOffsetY; }

  // The last chat line, the user name that came with it, and when it arrived. Cut to 1023 and 63 characters.
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
