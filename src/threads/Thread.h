#pragma once

struct SDL_Thread;

namespace tolva {

// An object with a thread of its own, which runs its Run. Destruction neither stops the thread nor waits for it.
class Thread {
 public:
  Thread() = default;
  virtual ~Thread() = default;

  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;

  // The body of the thread.
  virtual void Run() {}

  // The function that SDL runs on the new thread; the argument is the Thread. Reports what Run throws, because an
  // exception that leaves a thread's function ends the process.
  static int Invoke(void* thread);

  // Waits for the thread to end; returns at once if it was never started or has been waited for. Stores the thread's
  // status in `status` unless that is null.
  void WaitThread(int* status);

  // Whether the thread, and any other that the object needs, could be started. For the thread that made the object,
  // before WaitThread.
  virtual bool HasStarted() const { return mThread != nullptr; }

 protected:
  // Starts the thread. The last step of a concrete class's constructor, when all members are ready. Throws an Error
  // when SDL cannot start it.
  void Start();

 private:
  SDL_Thread* mThread = nullptr;  // SDL's; WaitThread lets SDL free it
};

}  // namespace tolva
