#include "server/Session.h"

#include "protocol/ChatPackets.h"
#include "server/NamePolicy.h"
#include "server/common/ChatText.h"

namespace tolva {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;

// A client pauses for a tenth of a second after each packet but pings, so it sends little more than 100 in the window.
constexpr std::size_t kMaxPackets = 600;
constexpr std::size_t kMaxChatLines = 20;
constexpr auto kRateWindow = seconds(10);
constexpr auto kWarningWindow = minutes(1);
constexpr int kMaxDenials = 20;
constexpr auto kFirstLoginWithin = seconds(30);
constexpr auto kNextLoginWithin = minutes(5);
constexpr auto kPingEvery = seconds(10);
constexpr auto kMaxSilence = seconds(30);

}  // namespace

Session::Session(ClientId id, ClientLink& link, TimePoint now)
    : mId(id),
      mLink(link),
      mPackets(kMaxPackets, kRateWindow),
      mChatLines(kMaxChatLines, kRateWindow),
      mWarnings(1, kWarningWindow),
      mWaitingSince(now),
      mLastHeard(now),
      mLastPing(now) {}

std::string Session::GetLabel() const {
  const std::string number = '#' + std::to_string(mId);
  return IsLoggedIn() ? number + ' ' + Quote(mName) : number;
}

void Session::Tell(const std::string& line) { Send(PacketChatMsg(kServerSpeaker, line.c_str())); }

void Session::CloseWith(const std::string& farewell) {
  if (IsLoggedIn()) {
    Tell(farewell);
  } else {
    Send(PacketLoginDeny(farewell.c_str()));
  }
  mLink.CloseAfterSending();
}

bool Session::CountPacket(TimePoint now) {
  mLastHeard = now;
  return mPackets.Allow(now);
}

Session::Verdict Session::CountChatLine(TimePoint now) {
  if (mChatLines.Allow(now)) return Verdict::Allow;
  return mWarnings.Allow(now) ? Verdict::Warn : Verdict::Drop;
}

bool Session::CountDenial(TimePoint now) {
  mWaitingSince = now;
  return ++mDenials < kMaxDenials;
}

bool Session::IsSilent(TimePoint now) const { return now - mLastHeard >= kMaxSilence; }

bool Session::HasWaitedTooLong(TimePoint now) const {
  if (IsLoggedIn()) return false;
  const Duration allowed = mDenials == 0 ? Duration(kFirstLoginWithin) : Duration(kNextLoginWithin);
  return now - mWaitingSince >= allowed;
}

bool Session::TakePingDue(TimePoint now) {
  const bool isDue = now - mLastPing >= kPingEvery;
  if (isDue) mLastPing = now;
  return isDue;
}

}  // namespace tolva
