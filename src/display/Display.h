#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <SDL.h>

#include "controls/ControlTextBasic.h"
#include "display/DisplaySettings.h"
#include "display/Screen.h"
#include "media/Archive.h"
#include "sdl/SurfacePtr.h"
#include "threads/ManagerThread.h"

namespace tolva {

class Repository;

// The client's window: sets up font and mouse pointer, decides which screen is shown, and runs the frame loop that
// feeds the screen events and packets. Starts no thread: the program calls Run on the main thread, and Run returns
// after the controller's PacketQuit.
class Display : public ManagerThread {
 public:
  // Opens the window as client.ini says and shows the start screen. Errors go to the log; see HasFailed.
  explicit Display(Mailbox* mailbox);
  ~Display() override;

  void Run() override;
  void HandleMyMailbox() override;

  // Saves the size in client.ini, for the next start. Throws an Error when the file cannot be written.
  void SetDisplaySize(const DisplaySize& size);

  // Whether a screen could not be shown. A line on standard error then says why, and Run only asks the controller to
  // quit and waits for its PacketQuit. The program's exit status must not be 0.
  bool HasFailed() const { return mHasFailed; }

 protected:
  // One pass of the frame loop, without its pause.
  void RunPass();
  Screen* GetScreen() const { return mScreen.get(); }

 private:
  bool Initialize();
  void LoadPointer();
  void LoadFont();
  bool Terminate();

  // Replaces the current screen by a new T; nothing else does. Its constructor gets `extra` after what all screens get,
  // and music stays on or off. `step` is the end of "could not ..." if that fails.
  template <typename T, typename... Extra>
  void ShowScreen(const char* step, const Extra&... extra);
  // Tells the player that there is no screen to show.
  void Fail();
  void QuitWithoutScreen();
  // Asks the controller, once it is known.
  void AskToQuit();
  std::unique_ptr<Packet> NextMail();

  void HandleEvents();
  void HandleEvent(const SDL_Event& event);
  void HandleRequest(const SDL_UserEvent& request);
  void ServeQueuedRequests();
  void SendScreenPackets();
  void HandleScreenPacket(std::unique_ptr<Packet> packet);
  void EnterChat();
  void EnterGame();
  void DrawFrame();
  void UpdateFps();

  Archive mArchive;
  std::unique_ptr<DisplaySettings> mSettings;
  std::optional<DisplaySize> mChosenSize;         // for the next start
  std::unique_ptr<ControlTextBasic> mFontKeeper;  // lives as long as the window, so that the shared font stays loaded
  std::unique_ptr<Screen> mScreen;
  SDL_Surface* mMainSurface = nullptr;  // SDL's own
  SurfacePtr mPointerSurface;
  Mailbox* mControllerMailbox = nullptr;
  Repository* mRepository = nullptr;  // the controller's, for the game screen
  int mMouseX = 0;
  int mMouseY = 0;
  std::uint32_t mFrameCount = 0;
  std::uint32_t mFrameRateTime;
  std::string mStep = "read client.ini";  // what is being done, as the end of "could not ..."
  bool mHasFailed = false;
  bool mWantsToQuit = false;  // the player does, or there is no screen
  bool mAskedToQuit = false;  // the controller knows
};

}  // namespace tolva
