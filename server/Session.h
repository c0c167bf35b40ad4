#pragma once

#include <string>

#include "server/ClientLink.h"
#include "server/FloodGuard.h"

namespace tolva {

class Place;

// One client while it is connected: who it is, where it is, and whether its patience or ours is at an end.
class Session {
 public:
  // The link must outlive the session.
  Session(ClientId id, ClientLink& link, TimePoint now);

  ClientId GetId() const { return mId; }
  // Empty until the login.
  const std::string& GetName() const { return mName; }
  bool IsLoggedIn() const { return !mName.empty(); }
  // How the log calls the client.
  std::string GetLabel() const;

  void LogIn(const std::string& name) { mName = name; }
  // Null outside every place: before the login.
  Place* GetPlace() const { return mPlace; }
  void SetPlace(Place* place) { mPlace = place; }

  void Send(const Packet& packet) { mLink.Send(packet); }
  // A chat line from the server to this client alone.
  void Tell(const std::string& line);
  // Tells why, in the way that the client can show, and closes. Whoever closes a session removes it soon.
  void CloseWith(const std::string& farewell);
  // The client has gone by itself, or was closed.
  void MarkGone() { mGone = true; }
  bool IsGone() const { return mGone; }

  // Counts a packet of any kind; false when the client sends more than any honest one.
  bool CountPacket(TimePoint now);
  enum class Manners { Fine, Warn, Unbearable };
  // Counts a chat line: more than 20 in 10 seconds earn one warning a minute, and no second one.
  Manners CountChatLine(TimePoint now);
  // Counts a denied login; false when it was the last try.
  bool CountDenial(TimePoint now);

  bool IsSilent(TimePoint now) const;
  // A client that is not logged in may stay for half a minute, or five minutes after a denied try: its player is
  // reading the reason and typing another name.
  bool HasWaitedTooLong(TimePoint now) const;
  TimePoint GetWaitingSince() const { return mWaitingSince; }
  // True once every ten seconds.
  bool TakePingDue(TimePoint now);

 private:
  ClientId mId;
  ClientLink& mLink;
  std::string mName;
  Place* mPlace = nullptr;
  bool mGone = false;
  FloodGuard mPackets;
  FloodGuard mChatLines;
  FloodGuard mWarnings;
  int mDenials = 0;
  TimePoint mWaitingSince;
  TimePoint mLastHeard;
  TimePoint mLastPing;
};

}  // namespace tolva
