#include "display/ScreenGame.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "controls/MouseWheel.h"
#include "controls/TypedCharacter.h"
#include "display/Component.h"
#include "display/FieldTiles.h"
#include "display/PictureIds.h"
#include "foundation/FlagScope.h"
#include "foundation/Guard.h"
#include "foundation/Ticks.h"
#include "protocol/FieldPosition.h"
#include "protocol/PacketDispatch.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"

namespace tolva {
namespace {

constexpr char kModule[] = "ScreenGame";

// One picture in the sheet of characters, and how far it reaches above its tile.
constexpr int kSpriteWidth = 76;
constexpr int kSpriteHeight = 114;
constexpr int kSpriteRise = 77;
constexpr int kVoluRise = 191;

// The first row of objects: so many rows further north than the window reaches that what a step South has not brought
// into the window yet is already drawn where it comes from.
constexpr int kRowsAbove = 2;

constexpr std::uint32_t kMessageMs = 10000;

std::int16_t Narrow(int value) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<int>(value, Limits::min(), Limits::max()));
}

const Field* Walk(const Field* field, Direction direction, int steps) {
  for (int step = 0; step < steps; ++step) field = Next(field, direction);
  return field;
}

}  // namespace

// Holds the repository for a scope; inside another one it goes along with that.
class ScreenGame::RepositoryHold {
 public:
  explicit RepositoryHold(ScreenGame& screen) : mScreen(screen), mIsFirst(!screen.mLocked) { mScreen.LockRepository(); }
  ~RepositoryHold() {
    if (mIsFirst) mScreen.UnlockRepository();
  }
  RepositoryHold(const RepositoryHold&) = delete;
  RepositoryHold& operator=(const RepositoryHold&) = delete;

 private:
  ScreenGame& mScreen;
  const bool mIsFirst;
};

ScreenGame::ScreenGame(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback,
                       InfoHandler* logger, Repository* repository)
    : Screen(id, videoSurface, context, callback, logger),
      mRepository(repository),
      mGraphics(std::make_unique<GameGraphics>(mArchive.get())) {
  Guard(kModule, kModule, [&] {
    SDL_EnableUNICODE(1);
    ScreenGame::InitializeComponents();
  });
}

ScreenGame::~ScreenGame() { ScreenGame::TerminateComponents(); }

void ScreenGame::InitializeComponents() {
  Guard(kModule, "InitializeComponents", [&] {
    SDL_Surface& window = *mVideoSurface;
    mBottomStrip = std::make_unique<BottomStrip>(*mArchive, window);
    mInputLine = std::make_unique<InputBox>(20, Narrow(window.h - 31), static_cast<std::uint16_t>(window.w - 20), 20,
                                            255, 255, 255, 256, "", mLogger);
    mInputLine->SetActive(true);
    mGround = std::make_unique<GroundGrid>(*mGraphics, *mRepository, *mLogger);
    mProgressFrame = mArchive->LoadImage(kPictureProgressFrame);
    mProgressBar = mArchive->LoadImage(kPictureProgressBar);
    mHistory = std::make_unique<MessageHistory>(*mArchive, window, mLogger);
    BuildMsgHistory(0);
  });
}

void ScreenGame::TerminateComponents() {
  mGround.reset();
  mInputLine.reset();
  mHistory.reset();
  mBottomStrip.reset();
  mProgressFrame.reset();
  mProgressBar.reset();
}

// ---- The repository's lock ----

void ScreenGame::LockRepository() {
  Guard(kModule, "LockRepository", [&] {
    if (mLocked) return;
    CheckSdl(mRepository->Wait() == 0, kModule, "LockRepository");
    mLocked = true;
  });
}

void ScreenGame::UnlockRepository() noexcept {
  if (mDrawing || !mLocked) return;
  mRepository->Post();
  mLocked = false;
}

// ---- The ground ----

void ScreenGame::UpdateGround() {
  const RepositoryHold hold(*this);
  mGround->UpdateAllDisplayRects();
}

Step ScreenGame::GetFieldsFromCenter(const Field& field) const {
  constexpr int kEdge = kAreaEdge;
  const Step areas = mRepository->GetMap().GetStepsFromCenter(*field.GetArea());
  return {field.GetFx() + kEdge * areas.x, field.GetFy() + kEdge * areas.y};
}

std::int32_t ScreenGame::GetBlitOffsetX() {
  return Guard(kModule, "GetBlitOffsetX", [&] {
    const RepositoryHold hold(*this);
    const ClientCharacter& player = mRepository->GetPlayer();
    const Field* field = player.GetField();
    if (field == nullptr) return 0;
    const Step place = GetFieldsFromCenter(*field);
    return GameDisplayRect::kWidth - kTileWidth / 2 * (place.x + place.y + 1) - player.GetOffsetX();
  });
}

std::int32_t ScreenGame::GetBlitOffsetY() {
  return Guard(kModule, "GetBlitOffsetY", [&] {
    const RepositoryHold hold(*this);
    const ClientCharacter& player = mRepository->GetPlayer();
    const Field* field = player.GetField();
    if (field == nullptr) return 0;
    const Step place = GetFieldsFromCenter(*field);
    return kTileHeight / 2 * (place.y - place.x) - player.GetOffsetY();
  });
}

// ---- Frames ----

void ScreenGame::Blit() {
  Guard(kModule, "Blit", [&] {
    if (mStatusMaximum != 0) return BlitProgress();
    BlitWorld();
    BlitBottom();
  });
}

void ScreenGame::BlitProgress() {
  SDL_Surface& window = *mVideoSurface;
  SDL_FillRect(&window, nullptr, SDL_MapRGB(window.format, 0, 0, 0));
  if (mProgressFrame == nullptr) return;
  const int width = mProgressFrame->w;
  const int height = mProgressFrame->h;
  const int left = window.w / 2 - width / 2;
  if (SDL_Surface* bar = mProgressBar.get()) {
    // A step is a whole number of pixels, so the bar grows evenly.
    const int done = static_cast<std::uint16_t>(width / mStatusMaximum * mStatusValue);
    CopyPart(bar, {0, 0, done, bar->h}, &window, left, height / 2 + window.h / 2 - bar->h);
  }
  CopyWhole(mProgressFrame.get(), &window, left, window.h / 2 - height / 2);
}

void ScreenGame::BlitWorld() {
  const RepositoryHold hold(*this);
  // Left before the repository is given back, also by an error.
  const FlagScope drawing(mDrawing, true);
  mGround->CheckAreaChange();
  ClientCharacter& player = mRepository->GetPlayer();
  player.Animate();
  if (player.IsMoving()) mMoveKeys.NoteMove();
  SDL_Surface& window = *mVideoSurface;
  // Whoever enters would see houses and people float in the dark until the ground has come.
  if (!mGround->HasGround()) {
    SDL_FillRect(&window, nullptr, SDL_MapRGB(window.format, 0, 0, 0));
    return;
  }
  mGround->Blit(window, window.w / 2 + GetBlitOffsetX() - GroundGrid::kWidth / 2,
                window.h / 2 + GetBlitOffsetY() - GroundGrid::kHeight / 2);
  BlitObjects();
}

void ScreenGame::BlitObjects() {
  Guard(kModule, "BlitObjects", [&] {
    const ClientCharacter& player = mRepository->GetPlayer();
    if (player.GetField() == nullptr) return;
    const int width = mVideoSurface->w;
    const int height = mVideoSurface->h;
    const int stepsWest = (width / kTileWidth + 2) / 2;
    const int stepsNorth = (height / 37 + 2) / 2 + kRowsAbove;
    const int left = width / 2 - player.GetOffsetX() - kTileWidth * stepsWest - kTileWidth / 2;
    const int top = height / 2 - player.GetOffsetY() - kTileHeight * stepsNorth - kTileHeight / 2;

    Labels labels;
    const Field* first = Walk(Walk(player.GetField(), Direction::West, stepsWest), Direction::North, stepsNorth);
    for (int row = 0; row < height / 37 + 7 + kRowsAbove; ++row) {
      const int y = top + kTileHeight * row;
      const Field* upper = first;
      const Field* lower = Next(first, Direction::SouthWest);
      for (int column = 0; column < width / kTileWidth + 4; ++column) {
        const int x = left + kTileWidth * column;
        BlitField(upper, x, y, labels);
        BlitField(lower, x - kTileWidth / 2, y + kTileHeight / 2, labels);
        upper = Next(upper, Direction::East);
        lower = Next(lower, Direction::East);
      }
      first = Next(first, Direction::South);
    }
    // What is said must not be hidden by what stands further down.
    for (const auto& label : labels) label->Blit(mVideoSurface);
  });
}

void ScreenGame::BlitField(const Field* field, int x, int y, Labels& labels) {
  if (field == nullptr) return;
  if (field->GetVoluId() != 0) {
    SDL_Surface* volu = mGraphics->FindGraphic(field->GetVoluId());
    if (volu != nullptr) CopyWhole(volu, mVideoSurface, x, y - kVoluRise);
  }
  if (ClientCharacter* character = ClientCharacter::On(*field)) BlitCharacter(*character, x, y, labels);
}

void ScreenGame::BlitCharacter(ClientCharacter& character, int x, int y, Labels& labels) {
  // The player's own moves with the view, before anything is drawn.
  if (&character != &mRepository->GetPlayer()) character.Animate();
  const int left = x + character.GetOffsetX();
  const int top = y + character.GetOffsetY() - kSpriteRise;
  if (SDL_Surface* sheet = mGraphics->FindGraphic(kPictureCharacters)) {
    const int direction = static_cast<int>(character.GetDirection());
    const Rect part{kSpriteWidth * character.GetFrame(), kSpriteHeight * direction, kSpriteWidth, kSpriteHeight};
    CopyPart(sheet, part, mVideoSurface, left, top);
  }
  if (character.GetChatMessage()[0] == '\0') return;
  if (GetTicks() - character.GetMessageTick() > kMessageMs) return character.SetChatMessage("");
  // Of somebody above the window there would be only the name at its edge.
  if (top + kSpriteHeight <= 0) return;
  AddLabel(character.GetChatMessage(), kWhite, left, top, labels);
  AddLabel(character.GetName(), kNameColor, left, top + kSpriteHeight, labels);
}

void ScreenGame::AddLabel(const char* text, Rgb color, int spriteX, int y, Labels& labels) {
  auto label = std::make_unique<TextBox>(0, Narrow(y), 800, 20, color.r, color.g, color.b, text, mLogger);
  label->SetX(Narrow(spriteX - (label->GetTextWidth() - kSpriteWidth) / 2));
  labels.push_back(std::move(label));
}

void ScreenGame::BlitBottom() {
  mBottomStrip->BlitBar();
  mInputLine->Blit(mVideoSurface);
  mBottomStrip->BlitStrips();
  mHistory->Blit();
}

// ---- Keys and buttons ----

void ScreenGame::SdlEventHandler(SDL_Event event) {
  Guard(kModule, "SdlEventHandler", [&] {
    const std::uint32_t now = GetTicks();
    if (!mMoveKeys.Admit(event, now, mStatusMaximum != 0)) return;
    std::unique_ptr<Packet> packet(HandleEvent(event));
    if (packet == nullptr) return;
    if (PacketCast<PacketMoveRequest>(packet.get()) != nullptr) mMoveKeys.NoteRequest(now);
    const bool leaves = PacketCast<PacketEnterChatRequest>(packet.get()) != nullptr;
    QueuePacket(std::move(packet));
    // Nobody will answer that request any more, and who plays in full screen has no window to close.
    if (leaves && mConnectionLost) QueuePacket(std::make_unique<PacketQuit>());
  });
}

Packet* ScreenGame::HandleEvent(SDL_Event event) {
  return Guard(kModule, "HandleEvent", [&]() -> Packet* {
    if (IsWheel(event)) return nullptr;
    switch (event.type) {
      case SDL_KEYDOWN:
        return HandleKey(event).release();
      case SDL_MOUSEBUTTONDOWN:
        CheckMsgHistoryEvent(event);
        return nullptr;
      case SDL_MOUSEBUTTONUP:
        mHistory->ReleaseButtons();
        return nullptr;
      default:
        return nullptr;
    }
  });
}

bool ScreenGame::TurnWheel(int x, int y, int notches) {
  return Guard(kModule, "TurnWheel", [&] { return mStatusMaximum == 0 && mHistory->TurnWheel(x, y, notches); });
}

std::unique_ptr<Packet> ScreenGame::HandleKey(const SDL_Event& event) {
  const SDLKey key = event.key.keysym.sym;
  if (IsReturn(key)) return TakeTypedLine();
  if (key == SDLK_ESCAPE) return std::make_unique<PacketEnterChatRequest>();
  const Direction direction = MoveKeys::DirectionOf(key);
  if (direction == Direction::None) {
    mInputLine->HandleEvent(event);
    return nullptr;
  }
  // A step is asked for only when the one before it has been drawn to its end.
  if (IsPlayerMoving()) return nullptr;
  return std::make_unique<PacketMoveRequest>(direction);
}

std::unique_ptr<Packet> ScreenGame::TakeTypedLine() {
  if (mInputLine->GetText()[0] == '\0') return nullptr;
  auto message = std::make_unique<PacketChatMsg>("", mInputLine->GetText());
  mInputLine->SetText("");
  return message;
}

bool ScreenGame::IsPlayerMoving() {
  const RepositoryHold hold(*this);
  return mRepository->GetPlayer().IsMoving();
}

void ScreenGame::BuildMsgHistory(std::uint32_t mode) {
  Guard(kModule, "BuildMsgHistory", [&] { mHistory->Build(mode); });
}

void ScreenGame::CheckMsgHistoryEvent(const SDL_Event& event) {
  Guard(kModule, "CheckMsgHistoryEvent", [&] { mHistory->HandlePress(event); });
}

// ---- Packets ----

void ScreenGame::HandlePacket(Packet* packet) {
  const std::unique_ptr<Packet> owned(packet);
  Guard(kModule, "HandlePacket", [&] {
    Dispatch(
        *packet, [&](const PacketInternConnectionLost&) { HandleConnectionLost(); },
        [&](const PacketInternPong& pong) { mBottomStrip->ShowRoundTrip(pong.mUintTick); },
        [&](const PacketInternStatus& status) { HandlePacketInternStatus(status); },
        [&](const PacketChatMsg& message) {
          mHistory->Add(message.IsFromServer() ? "Server" : message.mStrUser, message.mStrMsg);
        },
        [&](const PacketGameChatMsg& message) { mHistory->Add(message.mStrUser, message.mStrMsg); },
        [&](const PacketAreaGround& ground) { HandlePacketAreaGround(ground); },
        [&](const PacketAreaVolu& volu) { HandlePacketAreaVolu(volu); },
        [&](const PacketMove& move) { HandlePacketMove(move); },
        [&](const PacketCharPosition& position) { HandlePacketCharPosition(position); },
        [&](const PacketDarkness& darkness) { HandlePacketDarkness(darkness); });
  });
}

void ScreenGame::HandlePacketDarkness(const PacketDarkness& packet) {
  Guard(kModule, "HandlePacketDarkness", [&] {
    if (packet.mByDarkness == mWorldDarkness) return;
    mWorldDarkness = packet.mByDarkness;
    mGraphics->SetDarkness(mWorldDarkness);
    // The end of a synchronisation draws all ground anyway.
    if (mStatusMaximum == 0) UpdateGround();
  });
}

void ScreenGame::HandlePacketCharPosition(const PacketCharPosition& packet) {
  Guard(kModule, "HandlePacketCharPosition", [&] { mGround->SetLastCenter(packet); });
}

void ScreenGame::HandlePacketInternStatus(const PacketInternStatus& packet) {
  Guard(kModule, "HandlePacketInternStatus", [&] {
    if (packet.mUintMaxValue != packet.mUintValue) {
      mStatusMaximum = packet.mUintMaxValue;
      mStatusValue = packet.mUintValue;
      return;
    }
    // Cleared first: whatever happens to the ground, the world is shown again.
    mStatusMaximum = 0;
    mStatusValue = 0;
    if (packet.mUintMaxValue != 0) UpdateGround();
  });
}

void ScreenGame::HandleConnectionLost() {
  mConnectionLost = true;
  mHistory->Add("", "The connection to the server is lost. Press Escape to quit.");
  if (mStatusMaximum == 0) return;
  // What is still missing will not come, and behind the progress nobody could read that line.
  HandlePacketInternStatus({mStatusMaximum, mStatusMaximum});
}

}  // namespace tolva
