#include "threads/Semaphore.h"

#include <SDL.h>

namespace tolva {

Semaphore::Semaphore() : mSemaphore(SDL_CreateSemaphore(1)) {}

Semaphore::~Semaphore() {
  if (mSemaphore != nullptr) SDL_DestroySemaphore(mSemaphore);
}

int Semaphore::Wait() { return SDL_SemWait(mSemaphore); }

int Semaphore::Post() { return SDL_SemPost(mSemaphore); }

}  // namespace tolva
