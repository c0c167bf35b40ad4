#pragma once

struct SDL_Thread;

namespace tolva {

// An object that runs its Run on a thread of its own. The destructor neither stops the thread nor waits for it.
class Thread {
 public:
  Thread() = default;
  virtual ~Thread() = default;

  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;

  // The body of the thread.
  virtual void Run() {}

  // What SDL calls on the new thread; the argument is the Thread. Nothing thrown by Run leaves it: an exception that
  // left a thread's function would end the process.
  static int Invoke(void* thread);

  // Waits for the thread to end, at once when it was never started or was waited for before; its status goes to
  // `status` unless that is null.
  void WaitThread(int* status);

  // Whether the thread was started, with all others that the object needs. For the thread that made the object, before
  // WaitThread.
  virtual bool HasStarted() const { return mThread != nullptr; }

 protected:
  // Starts the thread: the last step of a concrete class's constructor, when all its members are ready. Throws an Error
  // when SDL cannot.
  void Start();

 private:
  SDL_Thread* mThread = nullptr;
};

}  // namespace tolva
