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

// The client's window: sets up the video mode, font and pointer, decides which screen is shown, and runs the frame loop
// that feeds it events and packets. Lives on the main thread and starts none of its own; its Run is called by the
// program and ends with the controller's PacketQuit.
class Display : public ManagerThread {
 public:
  // Sets everything up as client.ini says. Errors end in the log; see HasFailed.
  explicit Display(Mailbox* mailbox);
  ~Display() override;

  void Run() override;
  void HandleMyMailbox() override;

  // Writes the size into client.ini, for the next start. Throws an Error when the file cannot be written.
  void SetDisplaySize(const DisplaySize& size);

  // Whether there is no screen to show. A line on standard error then says why; Run asks the controller to quit and
  // serves only the mailbox until it does. The program's status shall not be 0.
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

  // The one place where a screen gives way to another: deletes the current one and shows a new T, constructed with
  // `extra` behind what all screens get; the music stays on or off. `step` tells the player what failed if it does.
  template <typename T, typename... Extra>
  void ShowScreen(const char* step, const Extra&... extra);
  // There is nothing to show (any more): tells the player and leaves for good.
  void Fail();
  void QuitWithoutScreen();
  // Tells the controller, as soon as it is known.
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

  const std::unique_ptr<Archive> mArchive;
  std::unique_ptr<DisplaySettings> mSettings;
  std::optional<DisplaySize> mChosenSize;  // for the next start
  std::unique_ptr<ControlTextBasic> mFontKeeper;
  std::unique_ptr<Screen> mScreen;
  SDL_Surface* mMainSurface = nullptr;  // SDL's own
  SurfacePtr mPointerSurface;
  Mailbox* mControllerMailbox = nullptr;
  Repository* mRepository = nullptr;  // the controller's, for the game screen
  std::uint32_t mMouseX = 0;
  std::uint32_t mMouseY = 0;
  std::uint32_t mFrameCount = 0;
  std::uint32_t mFrameRate = 0;
  std::uint32_t mFrameRateTime;
  std::string mStep = "read client.ini";  // what is being done, for the player if it fails
  bool mHasFailed = false;
  bool mWantsToQuit = false;  // the player does, or there is no screen
  bool mAskedToQuit = false;  // the controller has been told
};

}  // namespace tolva
