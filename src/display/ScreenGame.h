#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "display/BottomStrip.h"
#include "display/GameDisplayRect.h"
#include "display/InputBox.h"
#include "display/MessageHistory.h"
#include "display/MoveKeys.h"
#include "display/Screen.h"
#include "display/TextBox.h"
#include "foundation/SurfacePtr.h"
#include "media/GameGraphics.h"
#include "protocol/AreaPackets.h"
#include "protocol/ChatPackets.h"
#include "protocol/GamePackets.h"
#include "protocol/InternPackets.h"
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
  void HandlePacket(Packet* packet) override;
  void InitializeComponents() override;
  void TerminateComponents() override;

  // How far the ground lies from where it would lie with the player in the middle of the rectangle in the middle, in
  // pixels. 0 while the player stands nowhere.
  std::int32_t GetBlitOffsetX();
  std::int32_t GetBlitOffsetY();

 private:
  struct PacketHandler;
  class RepositoryHold;
  using Labels = std::vector<std::unique_ptr<TextBox>>;

  // ---- The repository's lock ----

  // Does nothing while this screen holds it. Throws an Error when SDL cannot take it.
  void LockRepository();
  // Does nothing while the map is being drawn.
  void UnlockRepository() noexcept;

  // ---- The ground: 5 by 5 rectangles, [i][j] with columns i from left to right and rows j from top to bottom ----

  static constexpr int kGridEdge = 5;
  using RectGrid = std::array<std::array<std::unique_ptr<GameDisplayRect>, kGridEdge>, kGridEdge>;

  // Gives rectangle [i][j], and from there all that have none, the start field that follows from its place.
  // (fx, fy) is (0, 12) or (12, 0): the rectangles' corners lie in the middle of the areas' edges.
  void InitDisplayRects(int i, int j, int r, int c, int fx, int fy);
  void UpdateAllDisplayRects();
  void InvalidateAllDisplayRects();
  // Follows the map when the player has walked into another area.
  void CheckAreaChange();
  // `direction` is where the ground moves.
  void UpdateDisplayRectsAfterMove(Direction direction);
  void ShiftDisplayRectsToNorth();
  void ShiftDisplayRectsToNorthEast();
  void ShiftDisplayRectsToEast();
  void ShiftDisplayRectsToSouthEast();
  void ShiftDisplayRectsToSouth();
  void ShiftDisplayRectsToSouthWest();
  void ShiftDisplayRectsToWest();
  void ShiftDisplayRectsToNorthWest();
  void ShiftDisplayRects(Direction direction);
  std::unique_ptr<GameDisplayRect> MakeDisplayRect();

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
  RectGrid mRects;
  std::uint8_t mWorldDarkness = 0;
  AreaPosition mLastCenter;  // of the map, when the rectangles were laid out last
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
