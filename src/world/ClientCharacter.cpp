#include "world/ClientCharacter.h"

#include "foundation/Text.h"
#include "world/Field.h"

namespace tolva {
namespace {

constexpr std::int32_t kFrames = 5;
constexpr std::int32_t kSlideSteps = 19;
constexpr std::uint32_t kSlideStepMs = 20;
constexpr std::uint32_t kFrameMs = 120;

// From the field that a character comes to, back to the one it left: half a tile is 38 pixels wide and 18 high.
struct Offset {
  std::int32_t x;
  std::int32_t y;
};
constexpr Offset kStartOffsets[kDirectionCount] = {{0, 36},  {-38, 18}, {-76, 0}, {-38, -18},
                                                   {0, -36}, {38, -18}, {76, 0},  {38, 18}};

}  // namespace

ClientCharacter* ClientCharacter::On(const Field& field) {
  return dynamic_cast<ClientCharacter*>(field.GetCharacter());
}

void ClientCharacter::StartMove(Direction direction, std::uint32_t now) {
  mDirection = direction;
  const Offset start = IsDirection(direction) ? kStartOffsets[static_cast<std::uint32_t>(direction)] : Offset{0, 0};
  mStartX = mOffsetX = start.x;
  mStartY = mOffsetY = start.y;
  AdvanceFrame(now);
  mMoving = true;
  mStepsLeft = kSlideSteps;
  mStepTick = now;
}

void ClientCharacter::Animate(std::uint32_t now) {
  if (!mMoving) return;
  if (now - mFrameTick >= kFrameMs) AdvanceFrame(now);
  if (now - mStepTick < kSlideStepMs) return;
  mStepTick = now;
  if (--mStepsLeft == 0) {
    mMoving = false;
    mStartX = mStartY = 0;
  }
  mOffsetX = mStartX * mStepsLeft / kSlideSteps;
  mOffsetY = mStartY * mStepsLeft / kSlideSteps;
}

void ClientCharacter::AdvanceFrame(std::uint32_t now) {
  mFrame = (mFrame + 1) % kFrames;
  mFrameTick = now;
}

void ClientCharacter::SetChatMessage(const char* message) { CopyText(mChatMessage, message); }

void ClientCharacter::SetName(const char* name) { CopyText(mName, name); }

}  // namespace tolva
