#pragma once

#include <cstdint>

#include <SDL.h>

#include "protocol/Direction.h"

namespace tolva {

// The keys that ask for a step, and how often a held one may ask. What SDL repeats for a held key passes only when no
// request is without answer: a second answer would come in the middle of the first one's slide, and the player would
// leap. Times are those of GetTicks.
class MoveKeys {
 public:
  // None for a key that does not move.
  static Direction DirectionOf(SDLKey key);

  // False for a repeat that must wait; all of them wait while the progress of a synchronisation hides the world. To be
  // shown every event: it learns from them which keys are held.
  bool Admit(const SDL_Event& event, std::uint32_t now, bool isWorldHidden);
  // A request for a step has been made.
  void NoteRequest(std::uint32_t now);
  // The player's character moves, so the request has been granted. Of a refusal nobody hears: after a second without a
  // move it counts as refused.
  void NoteMove() { mRequestWaits = false; }

 private:
  std::uint32_t mHeld = 0;  // a bit for each move key
  bool mRequestWaits = false;
  std::uint32_t mRequestTick = 0;
};

}  // namespace tolva
