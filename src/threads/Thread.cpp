#include "threads/Thread.h"

#include <utility>

#include <SDL.h>
#include <SDL_thread.h>

#include "foundation/Guard.h"

namespace tolva {

int Thread::Invoke(void* thread) {
  ErrHandler errHandler;
  Report(errHandler, "Thread", "Invoke", [&] { static_cast<Thread*>(thread)->Run(); });
  return 0;
}

void Thread::WaitThread(int* status) {
  if (SDL_Thread* thread = std::exchange(mThread, nullptr)) SDL_WaitThread(thread, status);
}

void Thread::Start() {
  mThread = SDL_CreateThread(&Thread::Invoke, this);
  if (mThread == nullptr) throw new Error("Thread", "Start", SDL_GetError());
}

}  // namespace tolva
