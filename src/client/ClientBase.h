#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "foundation/Mailbox.h"
#include "foundation/ManagerThread.h"
#include "media/SoundManager.h"
#include "network/ServerInstance.h"
#include "protocol/LoginPackets.h"
#include "world/Repository.h"

namespace tolva {

enum ClientState : std::uint32_t { eClientStateNotConnected = 0, eClientStateInChat = 1, eClientStateInGame = 2 };

// The controller: stands between the display, the server instance and the sound manager, owns what the display shares
// with it, keeps the connection alive with pings and ends all threads in order when the player or the server quits.
//
// Everything but construction and destruction happens on its own thread. Packets that it passes on carry the
// controller's mailbox as their source.
class ClientBase : public ManagerThread {
 public:
  // Creates server instance and sound manager and starts all three threads. `mailbox` must outlive the thread.
  explicit ClientBase(Mailbox* mailbox);
  // Only after WaitThread: the thread is neither stopped nor waited for here.
  ~ClientBase() override;

  void Run() override;
  void HandleMyMailbox() override;

 private:
  enum class Target { Server, Sound, Display };
  // What happens to packets of one code: the step, if there is one, then the packet is passed on.
  struct Route {
    PacketCode code;
    Target target;
    void (ClientBase::*step)(Packet& packet) = nullptr;
  };

  // A step that takes the packet as its own class.
  template <typename PacketX, void (ClientBase::*TypedStep)(PacketX& packet)>
  void As(Packet& packet) {
    if (PacketX* typed = PacketCast<PacketX>(&packet)) (this->*TypedStep)(*typed);
  }

  void HandleMailFromDisplay(std::unique_ptr<Packet> packet);
  void HandleMailFromServer(std::unique_ptr<Packet> packet);
  void Dispatch(std::span<const Route> routes, std::unique_ptr<Packet> packet);

  bool IsFromDisplay(const Packet& packet) const;
  bool IsDisplayBehind();
  void AdoptDisplay(Mailbox* mailbox);
  void Ping();
  void SetState(ClientState state);

  // Null, so that what is sent there is deleted, for the display while it is unknown.
  Mailbox* MailboxOf(Target target);

  void StampVersion(PacketLoginRequest& request);
  void EnterChat(Packet&);
  void EnterGame(Packet&);
  void ServerQuit(Packet& quit);
  // Ends the other threads, one after the other, and this one with this pass.
  void Quit(Packet& quit);

  Mailbox mServerMailbox;
  Mailbox mSoundMailbox;
  std::unique_ptr<ServerInstance> mServerInstance;
  std::unique_ptr<SoundManager> mSoundManager;
  // A flag of its own says whether the display is known: the first announcement comes from nobody, and a null mailbox
  // would take it for the display's mail.
  bool mIsDisplayKnown = false;
  Mailbox* mDisplayMailbox = nullptr;
  std::uint32_t mLastPing = 0;
  Repository mRepository;
  ClientState mState = eClientStateNotConnected;
};

}  // namespace tolva
