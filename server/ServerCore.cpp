#include "server/ServerCore.h"

#include <utility>

#include "protocol/PacketDispatch.h"
#include "server/common/ChatText.h"

namespace tolva {
namespace {

// What a client of this version may send. Whoever sends anything else is disconnected.
using PacketsFromClients = TypeList<PacketInternPing, PacketInternPong, PacketConnectionRequest, PacketLoginRequest,
                                    PacketLogout, PacketChatMsg, PacketEnterChatRequest, PacketQuit, PacketServerInfo,
                                    PacketClientInfo, PacketAreaVersion, PacketEnterGameRequest, PacketMoveRequest>;

template <typename... Packets>
bool IsOneOf(const Packet& packet, TypeList<Packets...>) {
  return (... || (PacketCast<Packets>(&packet) != nullptr));
}

// The last noon before the server's first hour.
TimePoint FindNoon(const ServerOptions& options, TimePoint now) {
  constexpr int kNoon = 12;
  constexpr int kHours = 24;
  const int hoursSinceNoon = (options.startHour + kHours - kNoon) % kHours;
  return now - Duration(std::chrono::minutes(options.dayMinutes)) * hoursSinceNoon / kHours;
}

}  // namespace

ServerCore::ServerCore(const ServerOptions& options, ServerLog& log, TimePoint now)
    : mLog(log),
      mStart(now),
      mDayClock(FindNoon(options, now), std::chrono::minutes(options.dayMinutes)),
      mReception(options.maxUsers),
      mRealm(options.worldSeed, options.villagers, now),
      mCommands(mReception, mRealm) {}

void ServerCore::Connect(ClientId id, ClientLink& link, const std::string& address, TimePoint now) {
  MakeRoomForNewcomer(now);
  auto& session = mSessions[id] = std::make_unique<Session>(id, link, now);
  Log(*session, "connected from " + address, now);
}

void ServerCore::Receive(ClientId id, const Packet& packet, TimePoint now) {
  const auto found = mSessions.find(id);
  if (found == mSessions.end()) return;
  Session& session = *found->second;
  mLog.Received(id, packet, now);
  if (session.CountPacket(now)) {
    Handle(session, packet, now);
  } else {
    Drop(session, "Your client sends too much at once.", "dropped: too many packets", now);
  }
  RemoveGone(now);
}

void ServerCore::Disconnect(ClientId id, const std::string& why, TimePoint now) {
  const auto found = mSessions.find(id);
  if (found == mSessions.end()) return;
  Log(*found->second, "disconnected: " + why, now);
  MarkGone(*found->second);
  RemoveGone(now);
}

void ServerCore::Tick(TimePoint now) {
  for (const auto& [id, session] : mSessions) CheckPatience(*session, now);
  RemoveGone(now);
  if (const std::uint8_t darkness = mDayClock.GetDarkness(now); darkness != mDarkness) {
    mDarkness = darkness;
    mLobby.SetDarkness(darkness);
    mRealm.SetDarkness(darkness);
  }
  mLobby.Tick(now);
  mRealm.Tick(now);
}

void ServerCore::Shutdown(TimePoint now) {
  for (const auto& [id, session] : mSessions)
    Drop(*session, "The server is closing down. Goodbye!", "sent home: closing down", now);
  RemoveGone(now);
}

void ServerCore::Handle(Session& session, const Packet& packet, TimePoint now) {
  if (!IsOneOf(packet, PacketsFromClients{})) {
    return Drop(session, "Your client sent something that a client never sends.",
                "dropped: sent a packet of code " + std::to_string(packet.mEnmCode), now);
  }
  const bool isDone = Dispatch(
      packet, [&](const PacketLoginRequest& request) { HandleLogin(session, request, now); },
      ForAnyOf<PacketQuit, PacketLogout>([&](const Packet&) { Drop(session, "Goodbye!", "quit", now); }));
  if (isDone || !session.IsLoggedIn()) return;
  const bool isTaken = Dispatch(
      packet, [&](const PacketChatMsg& chat) { HandleChatLine(session, chat.mStrMsg, now); },
      [&](const PacketServerInfo&) { session.Send(PacketServerInfo(kVersion)); },
      [&](const PacketEnterGameRequest&) { EnterGame(session, now); },
      [&](const PacketEnterChatRequest&) { Move(session, mLobby, now); });
  if (!isTaken) session.GetRoom()->Handle(session, packet, now);
}

void ServerCore::HandleLogin(Session& session, const PacketLoginRequest& request, TimePoint now) {
  // Pressing Return twice sends the request twice.
  if (session.IsLoggedIn()) return;
  const std::string refusal = mReception.Refuse(request);
  if (refusal.empty()) {
    mReception.Admit(request.mStrLogin);
    session.LogIn(request.mStrLogin);
    Log(session, "logged in", now);
    return Move(session, mLobby, now);
  }
  Log(session, "denied as " + Quote(request.mStrLogin) + ": " + refusal, now);
  if (!session.CountDenial(now)) return Drop(session, refusal, "dropped: too many denied logins", now);
  session.Send(PacketLoginDeny(refusal.c_str()));
}

void ServerCore::HandleChatLine(Session& session, const char* text, TimePoint now) {
  switch (session.CountChatLine(now)) {
    case Session::Verdict::Allow:
      break;
    case Session::Verdict::Warn:
      Log(session, "warned: too many chat lines", now);
      return session.Tell(
          "Please write more slowly: that line was not passed on, and another one too soon will disconnect you.");
    case Session::Verdict::Drop:
      return Drop(session, "You were thrown out for writing too many lines at once.", "dropped: too many chat lines",
                  now);
  }
  const std::string line = WithoutInvisible(text);
  if (IsAllBlank(line)) return;
  if (ChatCommands::IsCommand(line)) return mCommands.Run(session, line, now);
  session.GetRoom()->Say(session, line, now);
}

void ServerCore::EnterGame(Session& session, TimePoint now) {
  if (session.GetRoom() == &mRealm) return;
  if (!mRealm.HasRoom()) return session.Tell("The village is full of people. Please try again later.");
  Move(session, mRealm, now);
}

void ServerCore::Move(Session& session, Room& room, TimePoint now) {
  if (session.GetRoom() == &room) return;
  if (session.GetRoom() != nullptr) session.GetRoom()->Leave(session, now);
  // First, because the lobby sends the number to a session that enters it.
  mLobby.SetUsersInGame(static_cast<std::uint32_t>(mRealm.GetPlayerCount()), now);
  if (session.GetRoom() != nullptr) Log(session, &room == &mRealm ? "entered the world" : "returned to the lobby", now);
  session.SetRoom(&room);
  room.Enter(session, now);
  mLobby.SetUsersInGame(static_cast<std::uint32_t>(mRealm.GetPlayerCount()), now);
}

void ServerCore::CheckPatience(Session& session, TimePoint now) {
  if (session.IsSilent(now)) return Drop(session, "Nothing was heard from your client.", "dropped: silent", now);
  if (session.HasWaitedTooLong(now))
    return Drop(session, "The login took too long. Please start the client again.", "dropped: no login", now);
  if (!session.TakePingDue(now)) return;
  const auto tick = std::chrono::duration_cast<std::chrono::milliseconds>(now - mStart).count();
  session.Send(PacketInternPing(static_cast<std::uint32_t>(tick)));
}

void ServerCore::MakeRoomForNewcomer(TimePoint now) {
  Session* longest = nullptr;
  std::size_t waiting = 0;
  for (const auto& [id, session] : mSessions) {
    if (session->IsLoggedIn()) continue;
    ++waiting;
    if (longest == nullptr || session->GetWaitingSince() < longest->GetWaitingSince()) longest = session.get();
  }
  if (waiting < kMaxWaitingClients) return;
  // Players log in at once, so the client that has waited longest is the least likely to be one.
  Drop(*longest, "Too many are at the door. Please start the client again.", "dropped: made room for another", now);
  RemoveGone(now);
}

void ServerCore::Drop(Session& session, const std::string& farewell, const std::string& why, TimePoint now) {
  Log(session, why, now);
  session.CloseWith(farewell);
  MarkGone(session);
}

void ServerCore::MarkGone(Session& session) {
  session.MarkGone();
  mSomeAreGone = true;
}

void ServerCore::Log(const Session& session, const std::string& text, TimePoint now) {
  mLog.Event(session.GetLabel() + ' ' + text, now);
}

void ServerCore::RemoveGone(TimePoint now) {
  if (!std::exchange(mSomeAreGone, false)) return;
  for (auto entry = mSessions.begin(); entry != mSessions.end();) {
    Session& session = *entry->second;
    if (!session.IsGone()) {
      ++entry;
      continue;
    }
    if (session.GetRoom() != nullptr) session.GetRoom()->Leave(session, now);
    if (session.IsLoggedIn()) mReception.Release(session.GetName());
    entry = mSessions.erase(entry);
  }
  mLobby.SetUsersInGame(static_cast<std::uint32_t>(mRealm.GetPlayerCount()), now);
}

}  // namespace tolva
