#include "world/ClientCharacter.h"

#include "foundation/Text.h"
#include "world/Field.h"
#include "world/TileSize.h"

namespace tolva {
namespace {

constexpr std::int32_t kFrames = 5;
constexpr std::uint32_t kFrameMs = 120;
constexpr std::int32_t kSlideSteps = 19;
constexpr std::uint32_t kSlideStepMs = 20;

}  // namespace

ClientCharacter* ClientCharacter::On(const Field& field) {
  return dynamic_cast<ClientCharacter*>(field.GetCharacter());
}

void ClientCharacter::StartMove(Direction direction, std::uint32_t now) {
  mDirection = direction;
  // The slide begins at the field that was left: a step in x leads down to the right, one in y up to the right.
  const Step step = IsDirection(direction) ? StepIn(direction) : Step{};
  mStartX = mOffsetX = -(step.x + step.y) * kTileWidth / 2;
  mStartY = mOffsetY = (step.y - step.x) * kTileHeight / 2;
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
