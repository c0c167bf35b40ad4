#pragma once

#include <cstdint>
#include <memory>

#include "display/BottomStrip.h"
#include "display/GroundGrid.h"
#include "display/InputBox.h"
#include "display/MessageHistory.h"
#include "display/MoveKeys.h"
#include "display/PicturePreloader.h"
#include "display/Screen.h"
#include "display/SyncProgress.h"
#include "display/WorldPainter.h"
#include "media/GameGraphics.h"
#include "protocol/AreaPackets.h"
#include "protocol/ChatPackets.h"
#include "protocol/GamePackets.h"
#include "protocol/InternPackets.h"
#include "world/Repository.h"

namespace tolva {

// The world around the player's character, and below it an input line, what was said before, and the round-trip time.
// While the controller fetches the world it shows the progress instead. Has no controls: it draws everything itself,
// from the map that it shares with the controller.
//
// Display thread only. Holds the repository's lock while it reads the map, without a break while it draws.
class ScreenGame final : public Screen {
 public:
  // `repository` stays the controller's and must outlive the screen.
  ScreenGame(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback, InfoHandler* logger,
             Repository* repository);
  ~ScreenGame() override;

  void Blit() override;
  // Gives the event to HandleEvent and queues the result, unless it is the repeat of a held move key that must wait.
  void SdlEventHandler(SDL_Event event) override;
  Packet* HandleEvent(SDL_Event event) override;
  bool TurnWheel(int x, int y, int notches) override;
  void HandlePacket(Packet* packet) override;
  void InitializeComponents() override;
  void TerminateComponents() override;

 private:
  class RepositoryHold;

  // Waits for the lock. Throws an Error when SDL cannot take it.
  void LockRepository();
  void UnlockRepository() noexcept;

  void BlitWorld();
  void BlitProgress();
  void BlitBottom();

  std::unique_ptr<Packet> HandleKey(const SDL_Event& event);
  std::unique_ptr<Packet> TakeTypedLine();
  bool IsPlayerMoving();
  void BuildMsgHistory(std::uint32_t mode);
  void CheckMsgHistoryEvent(const SDL_Event& event);

  void HandlePacketDarkness(const PacketDarkness& packet);
  void HandlePacketCharPosition(const PacketCharPosition& packet);
  void HandlePacketInternStatus(const PacketInternStatus& packet);
  void HandleConnectionLost();
  // Nothing to do: the controller has put the content into the map, from which each frame is drawn.
  void HandlePacketAreaGround(const PacketAreaGround&) {}
  void HandlePacketAreaVolu(const PacketAreaVolu&) {}
  void HandlePacketMove(const PacketMove&) {}

  // Draws all ground, which is shown from then on.
  void UpdateGround();

  Repository& mRepository;
  GameGraphics mGraphics;
  WorldPainter mPainter;
  PicturePreloader mPreloader;
  std::unique_ptr<GroundGrid> mGround;
  std::unique_ptr<SyncProgress> mProgress;
  std::unique_ptr<BottomStrip> mBottomStrip;
  std::unique_ptr<InputBox> mInputLine;
  std::unique_ptr<MessageHistory> mHistory;
  MoveKeys mMoveKeys;
  bool mConnectionLost = false;
};

}  // namespace tolva
