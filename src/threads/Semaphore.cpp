#include "threads/Semaphore.h"

#include <SDL.h>

namespace tolva {

Semaphore::Semaphore() : mSemaphore(SDL_CreateSemaphore(1)) {}

void Semaphore::Destroyer::operator()(SDL_semaphore* semaphore) const { SDL_DestroySemaphore(semaphore); }

int Semaphore::Wait() { return SDL_SemWait(mSemaphore.get()); }

int Semaphore::Post() { return SDL_SemPost(mSemaphore.get()); }

}  // namespace tolva
