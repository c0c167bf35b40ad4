#include "client/ClientBase.h"

#include <utility>

#include "foundation/Ticks.h"
#include "protocol/PacketDispatch.h"

namespace tolva {

namespace {

constexpr std::uint32_t kPauseMs = 5;
constexpr std::uint32_t kPingIntervalMs = 2500;
constexpr char kAreaCache[] = "area/";

const char* GetLogText(ClientState state) {
  switch (state) {
    case eClientStateNotConnected:
      return "Changed state to eClientStateNotConnected";
    case eClientStateInChat:
      return "Changed state to eClientStateInChat";
    case eClientStateInGame:
      return "Changed state to eClientStateInGame";
  }
  return "Changed state to unknown state !!!";
}

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
  // Null when its constructor failed.
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
    // The mail that waits here meanwhile counts as received, so that no request goes out.
    if (IsDisplayBehind()) return mRequests.NoteReceived(GetTicks());
    std::unique_ptr<Packet> packet = FetchMail();
    if (packet == nullptr) return;
    if (packet->mObjSource == &mServerMailbox) return HandleMailFromServer(std::move(packet));
    if (IsFromDisplay(*packet)) return HandleMailFromDisplay(std::move(packet));
    Dispatch(*packet, [&](const PacketInternCentralMailbox& news) { AdoptDisplay(news.mObjMailbox); });
  });
}

bool ClientBase::IsFromDisplay(const Packet& packet) const {
  return mIsDisplayKnown && packet.mObjSource == mDisplayMailbox;
}

// The controller then leaves its own mail alone, and the server instance, which feeds it, stops in turn: a display that
// cannot keep up costs bounded memory.
bool ClientBase::IsDisplayBehind() { return mIsDisplayKnown && mDisplayMailbox->GetCount() > kMailboxHighWater; }

void ClientBase::GiveToServer(std::unique_ptr<Packet> packet) {
  mRequests.NoteSent(GetTicks());
  Send(&mServerMailbox, std::move(packet));
}

void ClientBase::SendRequest() {
  Guard("ClientBase", "SendRequest", [&] {
    auto request = mRequests.TakeDue(GetTicks(), mServerMailbox.GetCount());
    if (request != nullptr) GiveToServer(std::move(request));
  });
}

void ClientBase::SendMusicOrder() {
  Guard("ClientBase", "SendMusicOrder", [&] {
    if (auto order = mMusic.Take(mSoundMailbox.GetCount())) Send(&mSoundMailbox, std::move(order));
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
    Log(InfoLevel::Progress, GetLogText(state));
  });
}

void ClientBase::HandleMailFromDisplay(std::unique_ptr<Packet> packet) {
  Guard("ClientBase", "HandleMailFromDisplay", [&] {
    LogTraffic("Recieved from display", *packet);
    const Target target =
        DispatchOr(Target::Nobody, *packet,
                   ForAnyOf<PacketChatMsg, PacketEnterChatRequest, PacketEnterGameRequest, PacketMoveRequest>(
                       [](const Packet&) { return Target::Server; }),
                   Do(&ClientBase::StampVersion, Target::Server), Do(&ClientBase::Quit, Target::Display),
                   Do(&ClientBase::AskForServerVersion, Target::Nobody), Do(&ClientBase::PlayMusic, Target::Nobody),
                   Do(&ClientBase::StopMusic, Target::Nobody));
    PassOn(std::move(packet), target);
  });
}

// Besides what no server should send, this deletes answers that need no reaction (after the accepted login comes the
// accepted chat) and music orders: the client chooses what it plays.
void ClientBase::HandleMailFromServer(std::unique_ptr<Packet> packet) {
  Guard("ClientBase", "HandleMailFromServer", [&] {
    LogTraffic("Recieved from server", *packet);
    mRequests.NoteReceived(GetTicks());
    const Target target = DispatchOr(
        Target::Nobody, *packet,
        ForAnyOf<PacketInternPong, PacketLoginDeny, PacketChatMsg, PacketChatUsers, PacketUserInGame, PacketServerInfo,
                 PacketEnterGameRequest, PacketDarkness>([](const Packet&) { return Target::Display; }),
        Do(&ClientBase::LoseConnection, Target::Display), Do(&ClientBase::EnterChat, Target::Display),
        Do(&ClientBase::EnterGame, Target::Display), Do(&ClientBase::ServerQuit, Target::Display),
        [this](const PacketCharPosition& placement) {
          return SynchronizeMap(placement) ? Target::Display : Target::Nobody;
        },
        Do(&ClientBase::CountAreaAnswer, Target::Nobody), Do(&ClientBase::UpdateAreaGround, Target::Display),
        Do(&ClientBase::UpdateAreaVolu, Target::Display), Do(&ClientBase::AddChar, Target::Display),
        Do(&ClientBase::RemoveChar, Target::Display), Do(&ClientBase::MoveChar, Target::Display),
        Do(&ClientBase::ShowChatMessage, Target::Display));
    PassOn(std::move(packet), target);
  });
}

void ClientBase::PassOn(std::unique_ptr<Packet> packet, Target target) {
  switch (target) {
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
  mRequests.Add(RequestQueue::Kind::ServerVersion, [question] { return std::make_unique<PacketServerInfo>(question); });
}

// Nobody will answer what is still to be asked.
void ClientBase::LoseConnection(const PacketInternConnectionLost&) { mRequests.Clear(); }

void ClientBase::EnterChat(const PacketEnterChatAccept&) {
  SetState(eClientStateInChat);
  mMusic.EnterLobby();
}

void ClientBase::EnterGame(const PacketEnterGameAccept&) { SetState(eClientStateInGame); }

void ClientBase::ServerQuit(const PacketQuit& quit) {
  SetState(eClientStateNotConnected);
  Quit(quit);
}

void ClientBase::Quit(const PacketQuit& quit) {
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

// An area's ground counts as the answer for the area; the volu that follows it does not.
void ClientBase::UpdateAreaGround(const PacketAreaGround& packet) {
  mWorld.CountAreaAnswer();
  mWorld.UpdateAreaGround(packet);
}

}  // namespace tolva
