#pragma once

struct SDL_semaphore;

namespace tolva {

// A lock over an SDL semaphore that starts free. Not re-entrant.
class Semaphore {
 public:
  Semaphore();
  virtual ~Semaphore();

  Semaphore(const Semaphore&) = delete;
  Semaphore& operator=(const Semaphore&) = delete;

  // Takes the lock, waiting until it is free. 0, or -1 when SDL reports a failure.
  int Wait();
  // Gives the lock back. 0, or -1 when SDL reports a failure.
  int Post();

 private:
  SDL_semaphore* mSemaphore;
};

// Holds a semaphore from its construction to its destruction. Not held when taking it failed: ask before touching what
// it guards.
class SemaphoreLock {
 public:
  explicit SemaphoreLock(Semaphore& semaphore) : mSemaphore(semaphore), mHeld(semaphore.Wait() == 0) {}
  ~SemaphoreLock() {
    if (mHeld) mSemaphore.Post();
  }

  SemaphoreLock(const SemaphoreLock&) = delete;
  SemaphoreLock& operator=(const SemaphoreLock&) = delete;

  bool IsHeld() const { return mHeld; }

 private:
  Semaphore& mSemaphore;
  bool mHeld;
};

}  // namespace tolva
