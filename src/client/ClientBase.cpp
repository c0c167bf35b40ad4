#include "client/ClientBase.h"

#include <algorithm>

#include "foundation/Ticks.h"
#include "protocol/PacketList.h"

namespace tolva {

namespace {

constexpr std::uint32_t kPauseMs = 5;
constexpr std::uint32_t kPingIntervalMs = 2500;
constexpr char kAreaCache[] = "area/";

}  // namespace

ClientBase::ClientBase(Mailbox* mailbox)
    : ManagerThread(mailbox),
      mWorld(mRepository, kAreaCache,
             {[this](auto make) { mRequests.Add(RequestQueue::Kind::Area, std::move(make)); },
              [this] { mRequests.Discard(RequestQueue::Kind::Area); },
              [this](auto progress) { Send(mDisplayMailbox, std::move(progress)); }},
             mInfoHandler) {
  Report(mErrHandler, "ClientBase", "ClientBase", [&] {
    mInfoHandler.SetModuleName("ClientBase");
    SetState(eClientStateNotConnected);
    mServerInstance = std::make_unique<ServerInstance>(&mServerMailbox);
    Send(&mServerMailbox, std::make_unique<PacketInternCentralMailbox>(mMailbox));
    mSoundManager = std::make_unique<SoundManager>(&mSoundMailbox);
    Send(&mSoundMailbox, std::make_unique<PacketInternCentralMailbox>(mMailbox));
    mLastPing = GetTicks();
    Start();
  });
}

ClientBase::~ClientBase() {
  Report(mErrHandler, "~ClientBase", "~ClientBase", [&] { Log(InfoLevel::Progress, "Terminating"); });
}

bool ClientBase::HasStarted() const {
  // One whose constructor failed is not there.
  const auto hasStarted = [](const Thread* part) { return part != nullptr && part->HasStarted(); };
  return ManagerThread::HasStarted() && hasStarted(mServerInstance.get()) && hasStarted(mSoundManager.get());
}

void ClientBase::Run() {
  Report(mErrHandler, "ClientBase", "Run", [&] { Log(InfoLevel::Progress, "Running"); });
  RunPasses("ClientBase", kPauseMs, [&] {
    HandleMyMailbox();
    Ping();
    SendRequest();
    SendMusicOrder();
  });
}

void ClientBase::HandleMyMailbox() {
  Guard("ClientBase", "HandleMyMailbox", [&] {
    // What then waits here is as good as coming in.
    if (IsDisplayBehind()) return mRequests.NoteReceived(GetTicks());
    std::unique_ptr<Packet> packet = FetchMail();
    if (packet == nullptr) return;
    if (packet->mObjSource == &mServerMailbox) return HandleMailFromServer(std::move(packet));
    if (IsFromDisplay(*packet)) return HandleMailFromDisplay(std::move(packet));
    if (const auto* announcement = PacketCast<PacketInternCentralMailbox>(packet.get())) {
      AdoptDisplay(announcement->mObjMailbox);
    }
  });
}

bool ClientBase::IsFromDisplay(const Packet& packet) const {
  return mIsDisplayKnown && packet.mObjSource == mDisplayMailbox;
}

// Mail that waits here makes the server instance wait in turn, so a display that cannot keep up costs bounded memory.
bool ClientBase::IsDisplayBehind() { return mIsDisplayKnown && mDisplayMailbox->GetCount() > kMailboxHighWater; }

void ClientBase::GiveToServer(std::unique_ptr<Packet> packet) {
  mRequests.NoteSent(GetTicks());
  Send(&mServerMailbox, std::move(packet));
}

void ClientBase::SendRequest() {
  Guard("ClientBase", "SendRequest", [&] {
    auto request = mRequests.TakeDue(GetTicks(), mServerMailbox.GetCount() == 0);
    if (request != nullptr) GiveToServer(std::move(request));
  });
}

void ClientBase::SendMusicOrder() {
  Guard("ClientBase", "SendMusicOrder", [&] {
    if (auto order = mMusic.Take(mSoundMailbox.GetCount() == 0)) Send(&mSoundMailbox, std::move(order));
  });
}

void ClientBase::AdoptDisplay(Mailbox* mailbox) {
  mDisplayMailbox = mailbox;
  mIsDisplayKnown = mailbox != nullptr;
  Send(mDisplayMailbox, std::make_unique<PacketInternRepository>(&mRepository));
}

void ClientBase::Ping() {
  Guard("ClientBase", "Ping", [&] {
    const std::uint32_t now = GetTicks();
    if (now - mLastPing <= kPingIntervalMs) return;
    GiveToServer(std::make_unique<PacketInternPing>(now));
    mLastPing = now;
  });
}

void ClientBase::SetState(ClientState state) {
  Guard("ClientBase", "SetState", [&] {
    mState = state;
    const auto text = [&] {
      switch (state) {
        case eClientStateNotConnected:
          return "Changed state to eClientStateNotConnected";
        case eClientStateInChat:
          return "Changed state to eClientStateInChat";
        case eClientStateInGame:
          return "Changed state to eClientStateInGame";
      }
      return "Changed state to unknown state !!!";
    };
    Log(InfoLevel::Progress, text());
  });
}

// A code that has no row in its table is deleted.
void ClientBase::HandleMailFromDisplay(std::unique_ptr<Packet> packet) {
  static constexpr Route kRoutes[] = {
      To<PacketLoginRequest, &ClientBase::StampVersion>(Target::Server),
      To<PacketChatMsg>(Target::Server),
      To<PacketEnterChatRequest>(Target::Server),
      To<PacketQuit, &ClientBase::Quit>(Target::Display),
      To<PacketServerInfo, &ClientBase::AskForServerVersion>(Target::Nobody),
      To<PacketEnterGameRequest>(Target::Server),
      To<PacketMoveRequest>(Target::Server),
      To<PacketMusicPlay, &ClientBase::PlayMusic>(Target::Nobody),
      To<PacketMusicStop, &ClientBase::StopMusic>(Target::Nobody),
  };
  Guard("ClientBase", "HandleMailFromDisplay", [&] {
    LogTraffic("Recieved from display", *packet);
    Dispatch(kRoutes, std::move(packet));
  });
}

// Deleted are, besides what no server should send, the answers that need no reaction (the accepted login is followed by
// the accepted chat) and music orders: the client chooses what it plays.
void ClientBase::HandleMailFromServer(std::unique_ptr<Packet> packet) {
  static constexpr Route kRoutes[] = {
      To<PacketInternConnectionLost, &ClientBase::LoseConnection>(Target::Display),
      To<PacketInternPong>(Target::Display),
      To<PacketLoginDeny>(Target::Display),
      To<PacketChatMsg>(Target::Display),
      To<PacketChatUsers>(Target::Display),
      To<PacketEnterChatAccept, &ClientBase::EnterChat>(Target::Display),
      To<PacketUserInGame>(Target::Display),
      To<PacketQuit, &ClientBase::ServerQuit>(Target::Display),
      To<PacketServerInfo>(Target::Display),
      To<PacketAreaGround, &ClientBase::UpdateAreaGround>(Target::Display),
      To<PacketAreaVolu, &ClientBase::UpdateAreaVolu>(Target::Display),
      To<PacketAreaVersion, &ClientBase::CountAreaAnswer>(Target::Nobody),
      To<PacketEnterGameRequest>(Target::Display),
      To<PacketEnterGameAccept, &ClientBase::EnterGame>(Target::Display),
      To<PacketGameChatMsg, &ClientBase::ShowChatMessage>(Target::Display),
      To<PacketMove, &ClientBase::MoveChar>(Target::Display),
      To<PacketCharPosition, &ClientBase::SynchronizeMap>(Target::Display),
      To<PacketAddChar, &ClientBase::AddChar>(Target::Display),
      To<PacketRemoveChar, &ClientBase::RemoveChar>(Target::Display),
      To<PacketDarkness>(Target::Display),
  };
  Guard("ClientBase", "HandleMailFromServer", [&] {
    LogTraffic("Recieved from server", *packet);
    mRequests.NoteReceived(GetTicks());
    Dispatch(kRoutes, std::move(packet));
  });
}

void ClientBase::Dispatch(std::span<const Route> routes, std::unique_ptr<Packet> packet) {
  const auto route =
      std::find_if(routes.begin(), routes.end(), [&](const Route& r) { return r.code == packet->mEnmCode; });
  if (route == routes.end() || !IsGenuine(*packet)) return;
  if (route->step != nullptr && !(this->*route->step)(*packet)) return;
  switch (route->target) {
    case Target::Server:
      return GiveToServer(std::move(packet));
    case Target::Display:
      return Send(mDisplayMailbox, std::move(packet));
    case Target::Nobody:
      return;
  }
}

void ClientBase::StampVersion(PacketLoginRequest& request) { static_cast<VersionNumbers&>(request) = kVersion; }

void ClientBase::AskForServerVersion(const PacketServerInfo& question) {
  const std::shared_ptr<const Packet> kept(question.Clone());
  mRequests.Add(RequestQueue::Kind::ServerVersion, [kept] { return std::unique_ptr<Packet>(kept->Clone()); });
}

// Nobody will answer.
void ClientBase::LoseConnection(Packet&) { mRequests.Clear(); }

void ClientBase::EnterChat(Packet&) {
  SetState(eClientStateInChat);
  mMusic.EnterLobby();
}

void ClientBase::EnterGame(Packet&) { SetState(eClientStateInGame); }

void ClientBase::ServerQuit(Packet& quit) {
  SetState(eClientStateNotConnected);
  Quit(quit);
}

void ClientBase::Quit(Packet& quit) {
  mRequests.Clear();
  mMusic.Clear();
  Send(&mServerMailbox, std::unique_ptr<Packet>(quit.Clone()));
  if (mServerInstance != nullptr) mServerInstance->WaitThread(nullptr);
  Log(InfoLevel::Progress, "Thread ServerInstance returned");
  Send(&mSoundMailbox, std::unique_ptr<Packet>(quit.Clone()));
  if (mSoundManager != nullptr) mSoundManager->WaitThread(nullptr);
  Log(InfoLevel::Progress, "Thread SoundManager returned");
  mRunning = false;
}

// An area's ground answers for the area; its volu, which follows, does not.
void ClientBase::UpdateAreaGround(const PacketAreaGround& packet) {
  mWorld.CountAreaAnswer();
  mWorld.UpdateAreaGround(packet);
}

}  // namespace tolva
