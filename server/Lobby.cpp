#include "server/Lobby.h"

#include <algorithm>

#include "foundation/Text.h"
#include "protocol/GamePackets.h"
#include "server/NamePolicy.h"
#include "server/Session.h"
#include "server/common/ChatText.h"

namespace tolva {
namespace {

// A client takes about 200 packets a second. One that cannot keep up is dropped, so others must not be able to send it
// more.
constexpr std::size_t kLinesPerSecond = 100;
constexpr auto kListsInterval = std::chrono::milliseconds(250);

bool IsBefore(const Session* left, const Session* right) {
  return FoldCase(left->GetName()) < FoldCase(right->GetName());
}

}  // namespace

Lobby::Lobby() : mLines(kLinesPerSecond, std::chrono::seconds(1)), mShared(1, kListsInterval) {}

void Lobby::Enter(Session& session, TimePoint now) {
  mMembers.insert(std::upper_bound(mMembers.begin(), mMembers.end(), &session, IsBefore), &session);
  mListsChanged = true;

  session.Send(PacketEnterChatAccept());
  if (!ShareListsIfDue(now)) SendLists(session, MakeList());
  session.Send(PacketDarkness(mDarkness));
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
  Broadcast(PacketDarkness(darkness));
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
  const bool isOverfull = mMembers.size() > kUserListCapacity;
  const std::size_t shown = isOverfull ? kUserListCapacity - 1 : mMembers.size();
  for (std::size_t i = 0; i < shown; ++i) list.Add(mMembers[i]->GetName().c_str());
  // Cannot be taken for a user: names have no brackets.
  if (isOverfull) list.Add(("(and " + std::to_string(mMembers.size() - shown) + " more)").c_str());
  list.mUintCount = static_cast<std::uint16_t>(mMembers.size());
  return list;
}

void Lobby::SendLists(Session& session, const PacketChatUsers& list) const {
  const auto position = std::ranges::find(mMembers, &session) - mMembers.begin();
  const bool isLeftOut = mMembers.size() > kUserListCapacity && position >= std::ptrdiff_t{kUserListCapacity} - 1;
  PacketChatUsers own(list);
  // People look for themselves: a session that the list leaves out takes the place of the last name.
  if (isLeftOut) CopyText(own.mStrUsers[kUserListCapacity - 2], session.GetName().c_str());
  session.Send(own);
  session.Send(PacketUserInGame(mUsersInGame));
}

}  // namespace tolva
