#include "server/Lobby.h"

#include <algorithm>

#include "foundation/Text.h"
#include "protocol/GamePackets.h"
#include "server/ChatText.h"
#include "server/NamePolicy.h"
#include "server/Session.h"

namespace tolva {
namespace {

// A client takes about 200 packets a second. Whatever others do, it must stay able to follow, or it would be dropped
// for what they did.
constexpr std::size_t kLinesPerSecond = 100;
constexpr auto kListsAtMostEvery = std::chrono::milliseconds(250);

bool IsBefore(const Session* left, const Session* right) {
  return FoldCase(left->GetName()) < FoldCase(right->GetName());
}

}  // namespace

Lobby::Lobby() : mLines(kLinesPerSecond, std::chrono::seconds(1)), mShared(1, kListsAtMostEvery) {}

void Lobby::Enter(Session& session, TimePoint now) {
  mMembers.insert(std::upper_bound(mMembers.begin(), mMembers.end(), &session, IsBefore), &session);
  mListsChanged = true;

  session.Send(PacketEnterChatAccept());
  if (!ShareListsIfDue(now)) SendLists(session, MakeList());
  PacketDarkness darkness;
  darkness.mByDarkness = mDarkness;
  session.Send(darkness);
  session.Tell("Welcome to Tolva, " + session.GetName() +
               "! Return sends your line, Escape empties it. /help tells more.");
}

void Lobby::Leave(Session& session, TimePoint now) {
  std::erase(mMembers, &session);
  mListsChanged = true;
  ShareListsIfDue(now);
}

void Lobby::Say(Session& session, const std::string& line, TimePoint now) {
  if (!mLines.Allow(now)) return session.Tell("Too many are talking at once. Please say that again.");
  Broadcast(PacketChatMsg(session.GetName().c_str(), line.c_str()));
}

void Lobby::SetDarkness(std::uint8_t darkness) {
  mDarkness = darkness;
  PacketDarkness packet;
  packet.mByDarkness = darkness;
  Broadcast(packet);
}

void Lobby::SetUsersInGame(std::uint32_t count, TimePoint now) {
  if (count == mUsersInGame) return;
  mUsersInGame = count;
  mListsChanged = true;
  ShareListsIfDue(now);
}

void Lobby::Broadcast(const Packet& packet) {
  for (Session* member : mMembers) member->Send(packet);
}

bool Lobby::ShareListsIfDue(TimePoint now) {
  if (!mListsChanged || !mShared.Allow(now)) return false;
  mListsChanged = false;
  const PacketChatUsers list = MakeList();
  for (Session* member : mMembers) SendLists(*member, list);
  return true;
}

PacketChatUsers Lobby::MakeList() const {
  PacketChatUsers list;
  list.mUintCount = static_cast<std::uint16_t>(mMembers.size());
  const bool isOverfull = mMembers.size() > kUserListCapacity;
  const std::size_t shown = isOverfull ? kUserListCapacity - 1 : mMembers.size();
  for (std::size_t i = 0; i < shown; ++i) CopyText(list.mStrUsers[i], mMembers[i]->GetName().c_str());
  // Not to be taken for a user: names have no brackets.
  const std::string more = "(and " + std::to_string(mMembers.size() - shown) + " more)";
  if (isOverfull) CopyText(list.mStrUsers[shown], more.c_str());
  return list;
}

void Lobby::SendLists(Session& session, const PacketChatUsers& list) const {
  const auto place = static_cast<std::size_t>(std::find(mMembers.begin(), mMembers.end(), &session) - mMembers.begin());
  PacketUserInGame inGame;
  inGame.mUintCount = mUsersInGame;
  // People look for themselves: whom the list would leave out takes the place of the last name.
  if (mMembers.size() > kUserListCapacity && place >= kUserListCapacity - 1) {
    PacketChatUsers own;
    own.mUintCount = list.mUintCount;
    std::copy(&list.mStrUsers[0][0], &list.mStrUsers[0][0] + sizeof list.mStrUsers, &own.mStrUsers[0][0]);
    CopyText(own.mStrUsers[kUserListCapacity - 2], session.GetName().c_str());
    session.Send(own);
  } else {
    session.Send(list);
  }
  session.Send(inGame);
}

}  // namespace tolva
