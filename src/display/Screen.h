#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include <SDL.h>

#include "controls/ControlBasic.h"
#include "display/ScreenComponents.h"
#include "foundation/InfoHandler.h"
#include "media/Archive.h"
#include "protocol/Packet.h"
#include "threads/Mailbox.h"

namespace tolva {

// The base of the screens that the display shows one at a time: the root of a tree of controls that covers the whole
// window, with a queue of packets for the controller. A screen is complete and can be drawn once it is constructed.
// Display thread only.
class Screen : public ControlBasic {
 public:
  // `videoSurface` and `logger` stay the caller's and must outlive the screen.
  Screen(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback, InfoHandler* logger);
  ~Screen() override;

  // Keys and pointer events of a screen that does without the routing to controls; returns what to queue for the
  // controller, which the caller owns, or null.
  virtual Packet* HandleEvent(SDL_Event event);
  // Takes the packet over and deletes it, whatever it does with it.
  virtual void HandlePacket(Packet* packet);
  // Frames of the last second.
  virtual void SetFps(std::uint32_t fps);
  // Places the components for the size of the video surface.
  virtual void Resize() {}
  // 0 is full daylight.
  virtual void SetDarkness(std::uint8_t darkness);
  // Whether music is wanted.
  virtual void SetSoundEnabled(bool enabled);
  bool IsSoundEnabled() const { return mSoundEnabled; }
  // Each screen's own constructor and destructor call their own versions.
  virtual void InitializeComponents() {}
  virtual void TerminateComponents() {}

  // The oldest packet for the controller, which the caller owns, or null.
  std::unique_ptr<Packet> GetNextPacket();

 protected:
  // Queues the packet for the controller; deletes it when it cannot be queued.
  void QueuePacket(std::unique_ptr<Packet> packet);

  // Whether the event is a press of Escape.
  static bool IsEscape(const SDL_Event& event);

  // Covers the whole video surface.
  void FillWindow();

  // Builds and places the components on black. A click on the component `picture` is a click on the screen.
  void BuildAroundPicture(std::span<const Component> table, std::uint32_t picture);

  InfoHandler* const mLogger;
  SDL_Surface* const mVideoSurface;
  Archive mArchive;
  Mailbox mOutgoing;
  std::uint8_t mDarkness = 255;
  bool mSoundEnabled = true;
  std::uint32_t mFps = 0;
  ScreenComponents mComponents;
};

}  // namespace tolva
