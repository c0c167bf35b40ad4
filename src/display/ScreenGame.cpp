#include "display/ScreenGame.h"

#include <utility>

#include "controls/MouseWheel.h"
#include "controls/TypedCharacter.h"
#include "foundation/Guard.h"
#include "foundation/Ticks.h"
#include "protocol/PacketDispatch.h"
#include "sdl/SdlError.h"
#include "sdl/Surface.h"

namespace tolva {
namespace {

constexpr char kModule[] = "ScreenGame";

// The input line lies on the bar along the bottom of the window.
constexpr int kInputLeft = 20;
constexpr int kInputBelowBarTop = 5;
constexpr int kInputHeight = 20;
constexpr std::uint32_t kMaxInput = 256;  // characters

// How many pictures a frame loads ahead: about 0.2 ms each.
constexpr int kLoadsAhead = 1;
constexpr int kLoadsInProgress = 4;

}  // namespace

// Holds the repository's lock for a scope.
class ScreenGame::RepositoryHold {
 public:
  explicit RepositoryHold(ScreenGame& screen) : mScreen(screen) { mScreen.LockRepository(); }
  ~RepositoryHold() { mScreen.UnlockRepository(); }
  RepositoryHold(const RepositoryHold&) = delete;
  RepositoryHold& operator=(const RepositoryHold&) = delete;

 private:
  ScreenGame& mScreen;
};

ScreenGame::ScreenGame(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback,
                       InfoHandler* logger, Repository* repository)
    : Screen(id, videoSurface, context, callback, logger),
      mRepository(*repository),
      mGraphics(&mArchive),
      mPainter(*videoSurface, mGraphics, mRepository, *logger),
      mPreloader(mGraphics, mRepository) {
  Guard(kModule, kModule, [&] {
    SDL_EnableUNICODE(1);
    ScreenGame::InitializeComponents();
  });
}

ScreenGame::~ScreenGame() { ScreenGame::TerminateComponents(); }

void ScreenGame::InitializeComponents() {
  Guard(kModule, "InitializeComponents", [&] {
    SDL_Surface& window = *mVideoSurface;
    mBottomStrip = std::make_unique<BottomStrip>(mArchive, window);
    mInputLine = std::make_unique<InputBox>(
        kInputLeft, static_cast<std::int16_t>(window.h - BottomStrip::kHeight + kInputBelowBarTop),
        static_cast<std::uint16_t>(window.w - kInputLeft), kInputHeight, kWhite.r, kWhite.g, kWhite.b, kMaxInput, "",
        mLogger);
    mInputLine->SetActive(true);
    mGround = std::make_unique<GroundGrid>(mGraphics, mRepository, *mLogger);
    mProgress = std::make_unique<SyncProgress>(mArchive);
    mHistory = std::make_unique<MessageHistory>(mArchive, window, mLogger);
    BuildMsgHistory(0);
  });
}

void ScreenGame::TerminateComponents() {
  mGround.reset();
  mInputLine.reset();
  mHistory.reset();
  mBottomStrip.reset();
  mProgress.reset();
}

void ScreenGame::LockRepository() {
  Guard(kModule, "LockRepository", [&] { CheckSdl(mRepository.Wait() == 0, kModule, "LockRepository"); });
}

void ScreenGame::UnlockRepository() noexcept { mRepository.Post(); }

// ---- Frames ----

void ScreenGame::Blit() {
  Guard(kModule, "Blit", [&] {
    if (mProgress->IsRunning()) return BlitProgress();
    BlitWorld();
    BlitBottom();
  });
}

void ScreenGame::BlitWorld() {
  const RepositoryHold hold(*this);
  mGround->CheckAreaChange();
  ClientCharacter& player = mRepository.GetPlayer();
  player.Animate();
  if (player.IsMoving()) mMoveKeys.NoteMove();
  SDL_Surface& window = *mVideoSurface;
  // Without ground the player would see houses and people float in the dark.
  if (!mGround->HasGround()) {
    Fill(window, kBlack);
    return;
  }
  mGround->Blit(window, window.w / 2 + mPainter.GetBlitOffsetX() - GroundGrid::kWidth / 2,
                window.h / 2 + mPainter.GetBlitOffsetY() - GroundGrid::kHeight / 2);
  mPainter.BlitObjects();
  mPreloader.Prepare(kLoadsAhead);
}

void ScreenGame::BlitProgress() {
  mProgress->Blit(*mVideoSurface);
  const RepositoryHold hold(*this);
  mPreloader.Prepare(kLoadsInProgress);
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
    if (!mMoveKeys.Admit(event, GetTicks(), mProgress->IsRunning())) return;
    if (std::unique_ptr<Packet> packet{HandleEvent(event)}) QueuePacket(std::move(packet));
    // Nobody will answer the request to leave any more, and in full screen there is no window to close.
    if (mConnectionLost && IsEscape(event)) QueuePacket(std::make_unique<PacketQuit>());
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
  return Guard(kModule, "TurnWheel", [&] { return !mProgress->IsRunning() && mHistory->TurnWheel(x, y, notches); });
}

std::unique_ptr<Packet> ScreenGame::HandleKey(const SDL_Event& event) {
  const SDLKey key = event.key.keysym.sym;
  if (IsReturn(key)) return TakeTypedLine();
  if (IsEscape(event)) return std::make_unique<PacketEnterChatRequest>();
  const Direction direction = MoveKeys::DirectionOf(key);
  if (direction == Direction::None) {
    mInputLine->HandleEvent(event);
    return nullptr;
  }
  // Asks for a step only when the last one has been drawn to its end.
  if (IsPlayerMoving()) return nullptr;
  mMoveKeys.NoteRequest(GetTicks());
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
  return mRepository.GetPlayer().IsMoving();
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
    if (packet.mByDarkness == mGraphics.GetDarkness()) return;
    mGraphics.SetDarkness(packet.mByDarkness);
    // The end of a synchronization draws all ground anyway.
    if (!mProgress->IsRunning()) UpdateGround();
  });
}

void ScreenGame::HandlePacketCharPosition(const PacketCharPosition& packet) {
  Guard(kModule, "HandlePacketCharPosition", [&] { mGround->SetLastCenter(packet); });
}

void ScreenGame::HandlePacketInternStatus(const PacketInternStatus& packet) {
  Guard(kModule, "HandlePacketInternStatus", [&] {
    if (packet.mUintMaxValue != packet.mUintValue) return mProgress->Set(packet.mUintValue, packet.mUintMaxValue);
    // Before the ground is drawn, so that an error there cannot leave the progress in front of the world.
    mProgress->Set(0, 0);
    if (packet.mUintMaxValue != 0) UpdateGround();
  });
}

void ScreenGame::HandleConnectionLost() {
  mConnectionLost = true;
  mHistory->Add("", "The connection to the server is lost. Press Escape to quit.");
  if (!mProgress->IsRunning()) return;
  // The missing areas will not come, and the progress would hide that line.
  mProgress->Set(0, 0);
  UpdateGround();
}

void ScreenGame::UpdateGround() {
  const RepositoryHold hold(*this);
  mGround->UpdateAllDisplayRects();
}

}  // namespace tolva
