#include "display/Display.h"

#include <cstdio>
#include <utility>

#include "archive/ArchiveFormat.h"
#include "display/DisplayRequests.h"
#include "display/FormattedText.h"
#include "display/PictureIds.h"
#include "display/ScreenChat.h"
#include "display/ScreenGame.h"
#include "display/ScreenLogin.h"
#include "display/ScreenStart.h"
#include "display/VideoSetup.h"
#include "foundation/Guard.h"
#include "foundation/Ticks.h"
#include "media/GameGraphics.h"
#include "media/PictureAhead.h"
#include "protocol/ChatPackets.h"
#include "protocol/GamePackets.h"
#include "protocol/InternPackets.h"
#include "protocol/LoginPackets.h"
#include "protocol/PacketDispatch.h"
#include "sdl/Copy.h"

namespace tolva {
namespace {

constexpr std::uint32_t kPauseMs = 5;
constexpr std::uint32_t kFrameRatePeriodMs = 1000;
constexpr int kFontSize = 12;
constexpr char kGraphics[] = "Graphics";
constexpr char kFontFile[] = "Data.tmp";

}  // namespace

Display::Display(Mailbox* mailbox)
    : ManagerThread(mailbox), mArchive(kGraphics, &mInfoHandler), mFrameRateTime(GetTicks()) {
  Report(mErrHandler, "Display", "Display", [&] {
    mInfoHandler.SetModuleName("Display");
    GameGraphics::ForgetMissing();
    mSettings = std::make_unique<DisplaySettings>();
    if (Initialize()) {
      Log(InfoLevel::Progress, "Initialized");
    } else {
      Log(InfoLevel::Failure, "Initializing failed");
    }
  });
  if (mScreen == nullptr) Fail();
}

Display::~Display() {
  Report(mErrHandler, "~Display", "~Display", [&] {
    Terminate();
    Log(InfoLevel::Progress, "Terminated");
  });
}

bool Display::Terminate() {
  return Guard("Display", "Terminate", [&] {
    mPointerSurface.reset();
    mScreen.reset();
    return true;
  });
}

// ---- Set-up ----

bool Display::Initialize() {
  return Guard("Display", "Initialize", [&] {
    PictureAhead title(kGraphics, kPictureTitle);
    mMainSurface = VideoSetup(mArchive, mInfoHandler, mStep).Open(mSettings->GetSize());
    if (mMainSurface == nullptr) return false;
    LoadPointer();
    LoadFont();
    ShowScreen<ScreenStart>("build the start screen", &title);
    return true;
  });
}

void Display::LoadPointer() {
  mPointerSurface = mArchive.LoadImage(kPicturePointer);
  if (mPointerSurface != nullptr) SDL_ShowCursor(0);
}

void Display::LoadFont() {
  mFontKeeper = std::make_unique<ControlTextBasic>(0, mMainSurface, nullptr, nullptr);
  mFontKeeper->SetPosition(0, 0);
  mStep = "take the font out of Graphics.cci and Graphics.cca (into Data.tmp in this directory)";
  if (!mArchive.Extract(archive_format::kFontId, kFontFile)) {
    throw new Error("Display", "Initialize", "Font not in archive");
  }
  mStep = "load the font of the archive Graphics";
  ControlTextBasic::LoadFont(kFontFile, kFontSize);
  if (std::remove(kFontFile) != 0) Log(InfoLevel::Failure, "Failed to remove temporary file");
}

// ---- Screens ----

template <typename T, typename... Extra>
void Display::ShowScreen(const char* step, const Extra&... extra) {
  mStep = step;
  // Before `extra` is used, which holds the display size that a request may change.
  ServeQueuedRequests();
  const bool isSoundEnabled = mScreen == nullptr || mScreen->IsSoundEnabled();
  mScreen.reset();
  mScreen = std::make_unique<T>(0, mMainSurface, nullptr, nullptr, &mInfoHandler, extra...);
  mScreen->SetSoundEnabled(isSoundEnabled);
}

void Display::Fail() {
  mHasFailed = true;
  std::fprintf(stderr, "Tolva could not %s. More is in log.clf in this directory.\n", mStep.c_str());
}

void Display::QuitWithoutScreen() {
  if (!mHasFailed) Fail();
  mWantsToQuit = true;
  HandleMyMailbox();
}

void Display::AskToQuit() {
  mWantsToQuit = true;
  if (mControllerMailbox == nullptr) return;
  mAskedToQuit = true;
  Send(mControllerMailbox, std::make_unique<PacketQuit>());
}

void Display::SetDisplaySize(const DisplaySize& size) {
  Guard("Display", "SetDisplaySize", [&] {
    mSettings->SaveSize(size);
    mChosenSize = size;
  });
}

// ---- The frame loop ----

void Display::Run() {
  Log(InfoLevel::Progress, "Running");
  RunPasses("Display", kPauseMs, [&] { RunPass(); });
}

void Display::RunPass() {
  if (mWantsToQuit && !mAskedToQuit) AskToQuit();
  if (mScreen == nullptr) return QuitWithoutScreen();
  HandleMyMailbox();
  HandleEvents();
  DrawFrame();
  UpdateFps();
}

// After the player has asked to quit, nothing else in the mail is worth a frame each.
std::unique_ptr<Packet> Display::NextMail() {
  std::unique_ptr<Packet> packet = FetchMail();
  while (mAskedToQuit && packet != nullptr && PacketCast<PacketQuit>(packet.get()) == nullptr) {
    packet = FetchMail();
  }
  return packet;
}

void Display::HandleMyMailbox() {
  Guard("Display", "HandleMyMailbox", [&] {
    std::unique_ptr<Packet> packet = NextMail();
    if (packet == nullptr) return;
    Log(InfoLevel::Traffic, FormattedText("Recieved %s", mPacketPrinter.Print(*packet)));
    const bool isForDisplay = Dispatch(
        *packet,
        // A null pointer came over the wire.
        [&](const PacketInternCentralMailbox& news) {
          if (news.mObjMailbox != nullptr) mControllerMailbox = news.mObjMailbox;
        },
        [&](const PacketInternRepository& news) {
          if (news.mObjRepository != nullptr) mRepository = news.mObjRepository;
        },
        [&](const PacketQuit&) { mRunning = false; });
    if (!isForDisplay && mScreen != nullptr) HandleScreenPacket(std::move(packet));
  });
}

void Display::HandleScreenPacket(std::unique_ptr<Packet> packet) {
  const bool changesScreen = Dispatch(
      *packet, [&](const PacketEnterChatAccept&) { EnterChat(); }, [&](const PacketEnterGameAccept&) { EnterGame(); });
  if (!changesScreen) mScreen->HandlePacket(packet.release());
}

void Display::EnterChat() {
  ShowScreen<ScreenChat>("build the chat screen", mChosenSize);
  // Without version numbers it is a question.
  Send(mControllerMailbox, std::make_unique<PacketServerInfo>());
}

void Display::EnterGame() {
  // Known by now: the controller announces it before it passes on anything from the server.
  if (mRepository != nullptr) ShowScreen<ScreenGame>("build the game screen", mRepository);
}

void Display::HandleEvents() {
  SDL_Event event;
  while (mScreen != nullptr && SDL_PollEvent(&event) != 0) {
    HandleEvent(event);
    mScreen->HandleSdlEvent(event);
    SendScreenPackets();
  }
}

void Display::HandleEvent(const SDL_Event& event) {
  switch (event.type) {
    case SDL_MOUSEMOTION:
      mMouseX = event.motion.x;
      mMouseY = event.motion.y;
      return;
    case SDL_QUIT:
      return AskToQuit();
    case SDL_USEREVENT:
      return HandleRequest(event.user);
  }
}

void Display::HandleRequest(const SDL_UserEvent& request) {
  if (request.code == kRequestLoginScreen) {
    ShowScreen<ScreenLogin>("build the login screen");
  } else if (request.code == kRequestDisplaySize && request.data1 != nullptr) {
    SetDisplaySize(*static_cast<const DisplaySize*>(request.data1));
  }
}

// An error while an event is handled leaves the requests behind it in the queue. The display size that such a request
// points to is deleted with its screen. A request for the login screen is void once its screen goes.
void Display::ServeQueuedRequests() {
  SDL_Event event;
  while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_EVENTMASK(SDL_USEREVENT)) > 0) {
    if (event.user.code != kRequestDisplaySize) continue;
    Report(mErrHandler, "Display", "HandleRequest", [&] { HandleRequest(event.user); });
  }
}

void Display::SendScreenPackets() {
  while (std::unique_ptr<Packet> packet{mScreen->GetNextPacket()}) {
    const bool asksToQuit = Dispatch(*packet, [&](const PacketQuit&) { AskToQuit(); });
    if (!asksToQuit) Send(mControllerMailbox, std::move(packet));
  }
}

void Display::DrawFrame() {
  mScreen->Blit();
  CopyWhole(mPointerSurface.get(), mMainSurface, mMouseX, mMouseY);
  SDL_Flip(mMainSurface);
}

void Display::UpdateFps() {
  Guard("Display", "UpdateFps", [&] {
    const std::uint32_t now = GetTicks();
    if (now - mFrameRateTime <= kFrameRatePeriodMs) {
      ++mFrameCount;
      return;
    }
    mFrameRateTime = now;
    mScreen->SetFps(std::exchange(mFrameCount, 0));
  });
}

}  // namespace tolva
