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

// The base of the screens, of which the display shows one at a time: the root of a tree of controls that covers the
// window, with a queue of packets for the controller. A constructed screen can be drawn. Display thread only.
class Screen : public ControlBasic {
 public:
  // `videoSurface` and `logger` stay the caller's and must outlive the screen.
  Screen(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback, InfoHandler* logger);
  ~Screen() override;

  // Handles an event in a screen without controls. Returns the packet that it makes for the controller, which the
  // caller owns, or null.
  virtual Packet* HandleEvent(SDL_Event event);
  // Handles the packet, which must not be null, and deletes it.
  virtual void HandlePacket(Packet* packet);
  // Takes the number of frames in the last second, for a screen that shows it.
  virtual void SetFps(std::uint32_t /*fps*/) {}
  // Places the components for the present size of the video surface.
  virtual void Resize() {}
  // From 0, full daylight, to 255, black.
  virtual void SetDarkness(std::uint8_t darkness);
  // Whether the player wants music.
  virtual void SetSoundEnabled(bool enabled);
  bool IsSoundEnabled() const { return mSoundEnabled; }
  // The constructor and the destructor of each screen call that screen's versions.
  virtual void InitializeComponents() {}
  virtual void TerminateComponents() {}

  // The oldest packet for the controller, which the caller owns, or null.
  std::unique_ptr<Packet> GetNextPacket();

 protected:
  // Queues the packet for the controller, or deletes it if it cannot be queued.
  void QueuePacket(std::unique_ptr<Packet> packet);

  // Whether the event is a press of Escape.
  static bool IsEscape(const SDL_Event& event);

  // Covers the whole video surface.
  void FillWindow();

  // Builds and places the components on a black window. Clicks on the component `picture` count as clicks on the
  // screen.
  void BuildAroundPicture(std::span<const Component> table, std::uint32_t picture);

  InfoHandler* const mLogger;
  SDL_Surface* const mVideoSurface;
  Archive mArchive;
  Mailbox mOutgoing;
  std::uint8_t mDarkness = 255;
  bool mSoundEnabled = true;
  ScreenComponents mComponents;
};

}  // namespace tolva
