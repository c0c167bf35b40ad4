#pragma once

#include <memory>

struct SDL_semaphore;

namespace tolva {

// A lock made of an SDL semaphore; free after construction. Not reentrant.
class Semaphore {
 public:
  Semaphore();
  virtual ~Semaphore() = default;

  Semaphore(const Semaphore&) = delete;
  Semaphore& operator=(const Semaphore&) = delete;

  // Waits until the lock is free and takes it. Returns 0, or -1 when SDL reports a failure.
  int Wait();
  // Releases the lock. Returns 0, or -1 when SDL reports a failure.
  int Post();

 private:
  struct Destroyer {
    void operator()(SDL_semaphore* semaphore) const;
  };

  std::unique_ptr<SDL_semaphore, Destroyer> mSemaphore;
};

// Holds a semaphore for the scope of the object. Taking it can fail: check IsHeld before using what it guards.
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
