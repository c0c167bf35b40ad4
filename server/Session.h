#pragma once

#include <string>

#include "server/ClientLink.h"
#include "server/common/RateLimiter.h"

namespace tolva {

class Room;

// One client while it is connected: who it is, where it is, and the limits of what it may do.
class Session final : public PacketSink {
 public:
  // The link must outlive the session.
  Session(ClientId id, ClientLink& link, TimePoint now);

  // Empty until the login.
  const std::string& GetName() const { return mName; }
  bool IsLoggedIn() const { return !mName.empty(); }
  // The client's name in the log.
  std::string GetLabel() const;

  void LogIn(const std::string& name) { mName = name; }
  // Null before the login.
  Room* GetRoom() const { return mRoom; }
  void SetRoom(Room* room) { mRoom = room; }

  void Send(const Packet& packet) override { mLink.Send(packet); }
  // A chat line from the server to this client alone.
  void Tell(const std::string& line);
  // Sends the reason in a form that the client can show, and closes the connection. The session is to be removed soon.
  void CloseWith(const std::string& farewell);
  // The client has disconnected, or was closed.
  void MarkGone() { mGone = true; }
  bool IsGone() const { return mGone; }

  // Counts a packet of any kind; false when the client sends more than any honest one.
  bool CountPacket(TimePoint now);
  enum class Verdict { Allow, Warn, Drop };
  // Counts a chat line. More than 20 in 10 seconds bring one warning a minute, and then the end.
  Verdict CountChatLine(TimePoint now);
  // Counts a denied login; false when it was the last one allowed.
  bool CountDenial(TimePoint now);

  bool IsSilent(TimePoint now) const;
  // A client that is not logged in may stay for half a minute, or for five minutes after a denied login: its player is
  // reading the reason and typing another name.
  bool HasWaitedTooLong(TimePoint now) const;
  TimePoint GetWaitingSince() const { return mWaitingSince; }
  // True once every ten seconds.
  bool TakePingDue(TimePoint now);

 private:
  ClientId mId;
  ClientLink& mLink;
  std::string mName;
  Room* mRoom = nullptr;
  bool mGone = false;
  RateLimiter mPackets;
  RateLimiter mChatLines;
  RateLimiter mWarnings;
  int mDenials = 0;
  TimePoint mWaitingSince;
  TimePoint mLastHeard;
  TimePoint mLastPing;
};

}  // namespace tolva
