#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "display/BottomStrip.h"
#include "display/GroundGrid.h"
#include "display/InputBox.h"
#include "display/MessageHistory.h"
#include "display/MoveKeys.h"
#include "display/Screen.h"
#include "display/TextBox.h"
#include "media/GameGraphics.h"
#include "protocol/AreaPackets.h"
#include "protocol/ChatPackets.h"
#include "protocol/GamePackets.h"
#include "protocol/InternPackets.h"
#include "sdl/SurfacePtr.h"
#include "world/Repository.h"

namespace tolva {

// The world around the player's character: ground, what stands on it, characters and what they say; below it a line to
// type in, what was said before, and the round-trip time. While the controller fetches the world it shows the progress
// instead. Draws everything itself, from the map that it shares with the controller, and has no controls.
//
// Display thread. Holds the repository's lock whenever it reads the map, in one piece while it draws.
class ScreenGame final : public Screen {
 public:
  // `repository` stays the controller's and must outlive the screen.
  ScreenGame(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback, InfoHandler* logger,
             Repository* repository);
  ~ScreenGame() override;

  void Blit() override;
  // Hands the event to HandleEvent, unless it is the repeat of a held key that must wait, and queues the result.
  void SdlEventHandler(SDL_Event event) override;
  Packet* HandleEvent(SDL_Event event) override;
  bool TurnWheel(int x, int y, int notches) override;
  void HandlePacket(Packet* packet) override;
  void InitializeComponents() override;
  void TerminateComponents() override;

  // How far the ground lies from where it would lie with the player in the middle of the rectangle in the middle, in
  // pixels. Counted from the map's centre area, which is the player's own until it steps over a border and again when
  // the map has followed. 0 while the player stands nowhere.
  std::int32_t GetBlitOffsetX();
  std::int32_t GetBlitOffsetY();

 private:
  class RepositoryHold;
  using Labels = std::vector<std::unique_ptr<TextBox>>;

  // ---- The repository's lock ----

  // Does nothing while this screen holds it. Throws an Error when SDL cannot take it.
  void LockRepository();
  // Does nothing while the map is being drawn.
  void UnlockRepository() noexcept;

  // Where the player stands, in fields from the (0, 0) of the map's centre area; may lie outside it.
  Step GetFieldsFromCenter(const Field& field) const;
  // Draws all ground, which from then on is shown.
  void UpdateGround();

  // ---- Frames ----

  void BlitProgress();
  void BlitWorld();
  void BlitObjects();
  void BlitField(const Field* field, int x, int y, Labels& labels);
  void BlitCharacter(ClientCharacter& character, int x, int y, Labels& labels);
  void AddLabel(const char* text, Rgb color, int spriteX, int y, Labels& labels);
  void BlitBottom();

  // ---- Keys, buttons and packets ----

  std::unique_ptr<Packet> HandleKey(const SDL_Event& event);
  std::unique_ptr<Packet> TakeTypedLine();
  bool IsPlayerMoving();
  void BuildMsgHistory(std::uint32_t mode);
  void CheckMsgHistoryEvent(const SDL_Event& event);

  void HandlePacketDarkness(const PacketDarkness& packet);
  void HandlePacketCharPosition(const PacketCharPosition& packet);
  void HandlePacketInternStatus(const PacketInternStatus& packet);
  void HandleConnectionLost();
  // What these bring stands in the map already, and each frame is drawn from the map.
  void HandlePacketAreaGround(const PacketAreaGround&) {}
  void HandlePacketAreaVolu(const PacketAreaVolu&) {}
  void HandlePacketMove(const PacketMove&) {}

  Repository* const mRepository;
  std::unique_ptr<GameGraphics> mGraphics;
  std::unique_ptr<GroundGrid> mGround;
  std::uint8_t mWorldDarkness = 0;
  std::uint16_t mStatusMaximum = 0;
  std::uint16_t mStatusValue = 0;
  bool mLocked = false;
  bool mDrawing = false;
  std::unique_ptr<BottomStrip> mBottomStrip;
  SurfacePtr mProgressFrame;
  SurfacePtr mProgressBar;
  std::unique_ptr<InputBox> mInputLine;
  std::unique_ptr<MessageHistory> mHistory;
  MoveKeys mMoveKeys;
  bool mConnectionLost = false;
};

}  // namespace tolva
