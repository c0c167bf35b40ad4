#pragma once

#include <cstdint>

#include <SDL.h>

#include "protocol/Direction.h"

namespace tolva {

// The keys that ask for a step, and the rate limiter for those that are held. The repeats of a held key wait while a
// request is unanswered: a second answer would come in the middle of the slide that the first one starts, and the
// player would leap. Times are those of GetTicks.
class MoveKeys {
 public:
  // None for a key that is not a move key.
  static Direction DirectionOf(SDLKey key);

  // False for a repeat that must wait, as all repeats must while the world is hidden. Call it with every event: it
  // learns from them which keys are held.
  bool Admit(const SDL_Event& event, std::uint32_t now, bool isWorldHidden);
  // Call it when a step is requested.
  void NoteRequest(std::uint32_t now);
  // Call it while the player's character moves: the request has been granted. A refusal is not announced, so a request
  // counts as refused after a second without a move.
  void NoteMove() { mIsRequestOpen = false; }

 private:
  std::uint32_t mHeld = 0;  // a bit for each move key
  bool mIsRequestOpen = false;
  std::uint32_t mRequestTick = 0;
};

}  // namespace tolva
