#include "server/ServerLog.h"

#include <ctime>
#include <memory>
#include <string>

#include "foundation/Text.h"
#include "protocol/LoginPackets.h"
#include "server/common/ChatText.h"

namespace tolva {
namespace {

std::string GetTimeOfDay() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
  return text;
}

}  // namespace

void ServerLog::Event(std::string_view text, TimePoint now) { Write(mEvents, text, now); }

void ServerLog::Traffic(ClientId client, const char* way, const Packet& packet, TimePoint now) {
  if (mDetail == LogDetail::Events) return;
  std::unique_ptr<Packet> shown(packet.Clone());
  if (auto* login = PacketCast<PacketLoginRequest>(shown.get())) CopyText(login->mStrPass, "");
  Write(mTraffic, '#' + std::to_string(client) + way + Quote(mPrinter.Print(*shown)), now);
}

void ServerLog::Write(Channel& channel, std::string_view text, TimePoint now) {
  if (!channel.limiter.Allow(now)) {
    ++channel.leftOut;
    return;
  }
  const std::string start = GetTimeOfDay() + ' ';
  if (channel.leftOut > 0) mOut << start + std::to_string(channel.leftOut) + " lines left out\n";
  channel.leftOut = 0;
  mOut << start + std::string(text) + '\n' << std::flush;
}

}  // namespace tolva
