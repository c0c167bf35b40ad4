#include "network/ServerInstance.h"

#include <cstdlib>
#include <utility>

#include "foundation/Guard.h"
#include "foundation/SettingsKeys.h"
#include "foundation/Text.h"
#include "protocol/PacketDispatch.h"

namespace tolva {
namespace {

constexpr std::uint32_t kPauseMs = 5;

}  // namespace

ServerInstance::ServerInstance(Mailbox* mailbox) : ManagerThread(mailbox) {
  Report(mErrHandler, "ServerInstance", "ServerInstance", [&] {
    mInfoHandler.SetModuleName("ServerInstance");
    mSettings = std::make_unique<Ini>(kSettingsFile);
    CopyText(mHost, mSettings->GetValue(kNetworkSection, kHostKey));
    const char* port = mSettings->GetValue(kNetworkSection, kPortKey);
    if (port != nullptr) mPort = static_cast<std::uint16_t>(std::strtol(port, nullptr, 10));
    Start();
  });
}

ServerInstance::~ServerInstance() {
  Report(mErrHandler, "ServerInstance", "~ServerInstance", [&] { Log(InfoLevel::Progress, "Terminating"); });
}

void ServerInstance::Run() {
  Log(InfoLevel::Progress, "Running");
  RunPasses("ServerInstance", kPauseMs, [&] {
    HandleTcpConnection();
    HandleMyMailbox();
  });
}

void ServerInstance::HandleMyMailbox() {
  Guard("ServerInstance", "HandleMyMailbox", [&] {
    std::unique_ptr<Packet> packet = FetchMail();
    if (packet == nullptr || !IsGenuine(*packet)) return;
    LogTraffic("Recieved from mailbox", *packet);
    const bool isHandled = Dispatch(
        *packet, [&](const PacketInternCentralMailbox& central) { mCentralMailbox = central.mObjMailbox; },
        [&](const PacketQuit&) { mRunning = false; },
        [&](const PacketLoginRequest&) { HandleLoginRequest(std::move(packet)); });
    if (!isHandled) SendTcpConnection(std::move(packet));
  });
}

void ServerInstance::HandleLoginRequest(std::unique_ptr<Packet> packet) {
  if (mConnection.IsConnected()) return SendTcpConnection(std::move(packet));
  if (!mConnecting) {
    mConnection.Connect(mHost, mPort);
    mConnecting = true;
  }
  Send(mMailbox, std::move(packet));  // it waits at the end of this thread's mailbox
}

void ServerInstance::HandleTcpConnection() {
  Guard("ServerInstance", "HandleTcpConnection", [&] {
    if (mCentralMailbox != nullptr && mCentralMailbox->GetCount() >= kMailboxHighWater) return;
    std::unique_ptr<Packet> packet = mConnection.Recieve();
    if (packet == nullptr) return;
    LogTraffic("Recieved from server", *packet);
    if (PacketCast<PacketInternConnectionInfo>(packet.get()) != nullptr) mConnecting = false;
    Send(mCentralMailbox, std::move(packet));
  });
}

void ServerInstance::SendTcpConnection(std::unique_ptr<Packet> packet) {
  Guard("ServerInstance", "SendTcpConnection", [&] {
    LogTraffic("Sending to server", *packet);
    mConnection.Send(std::move(packet));
  });
}

}  // namespace tolva
