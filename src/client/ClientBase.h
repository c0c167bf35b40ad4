#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <type_traits>

#include "client/MusicOrders.h"
#include "client/RequestQueue.h"
#include "media/SoundManager.h"
#include "network/ServerInstance.h"
#include "protocol/LoginPackets.h"
#include "threads/Mailbox.h"
#include "threads/ManagerThread.h"
#include "world/Repository.h"
#include "world/WorldSynchronizer.h"

namespace tolva {

enum ClientState : std::uint32_t { eClientStateNotConnected = 0, eClientStateInChat = 1, eClientStateInGame = 2 };

// The controller: stands between the display, the server instance and the sound manager, owns what the display shares
// with it, keeps the world in step with the server, keeps the connection alive with pings and ends all threads in order
// when the player or the server quits.
//
// Everything but construction and destruction happens on its own thread. Packets that it passes on carry the
// controller's mailbox as their source.
class ClientBase : public ManagerThread {
 public:
  // Creates server instance and sound manager and starts all three threads. `mailbox` must outlive the thread.
  explicit ClientBase(Mailbox* mailbox);
  // Only after WaitThread: the thread is neither stopped nor waited for here.
  ~ClientBase() override;

  bool HasStarted() const override;
  void Run() override;
  void HandleMyMailbox() override;

 private:
  enum class Target { Server, Display, Nobody };
  // What happens to packets of one code: the step, if there is one; then, unless it says no, the packet is passed on.
  struct Route {
    PacketCode code;
    Target target;
    bool (ClientBase::*step)(Packet& packet) = nullptr;
  };

  // The route of one class. Its operation, if there is one, takes the packet as that class; it says no by returning
  // false.
  template <typename PacketX, auto Operation = nullptr>
  static constexpr Route To(Target target) {
    if constexpr (std::is_null_pointer_v<decltype(Operation)>) {
      return {PacketX::kCode, target};
    } else {
      return {PacketX::kCode, target, &ClientBase::Step<PacketX, Operation>};
    }
  }

  template <typename PacketX, auto Operation>
  bool Step(Packet& packet) {
    PacketX* typed = PacketCast<PacketX>(&packet);
    if (typed == nullptr) return false;
    if constexpr (std::is_void_v<std::invoke_result_t<decltype(Operation), ClientBase*, PacketX&>>) {
      std::invoke(Operation, this, *typed);
      return true;
    } else {
      return std::invoke(Operation, this, *typed);
    }
  }

  void HandleMailFromDisplay(std::unique_ptr<Packet> packet);
  void HandleMailFromServer(std::unique_ptr<Packet> packet);
  void Dispatch(std::span<const Route> routes, std::unique_ptr<Packet> packet);

  bool IsFromDisplay(const Packet& packet) const;
  bool IsDisplayBehind();
  void AdoptDisplay(Mailbox* mailbox);
  void Ping();
  // Sends the next request that is due.
  void SendRequest();
  void SendMusicOrder();
  void GiveToServer(std::unique_ptr<Packet> packet);
  void SetState(ClientState state);

  void StampVersion(PacketLoginRequest& request);
  // These go on when their time comes.
  void AskForServerVersion(const PacketServerInfo& question);
  void PlayMusic(const PacketMusicPlay& order) { mMusic.Order(order); }
  void StopMusic(const PacketMusicStop& order) { mMusic.Order(order); }
  void LoseConnection(Packet&);
  void EnterChat(Packet&);
  void EnterGame(Packet&);
  void ServerQuit(Packet& quit);
  // Ends the other threads, one after the other, and this one with this pass.
  void Quit(Packet& quit);

  // The world, as WorldSynchronizer describes it.
  bool SynchronizeMap(const PacketCharPosition& packet) { return mWorld.SynchronizeMap(packet); }
  void UpdateAreaGround(const PacketAreaGround& packet);
  void UpdateAreaVolu(const PacketAreaVolu& packet) { mWorld.UpdateAreaVolu(packet); }
  void CountAreaAnswer(const PacketAreaVersion&) { mWorld.CountAreaAnswer(); }
  void AddChar(const PacketAddChar& packet) { mWorld.AddChar(packet); }
  void RemoveChar(const PacketRemoveChar& packet) { mWorld.RemoveChar(packet); }
  void MoveChar(const PacketMove& packet) { mWorld.MoveChar(packet); }
  void ShowChatMessage(const PacketGameChatMsg& packet) { mWorld.ShowChatMessage(packet); }

  Mailbox mServerMailbox;
  Mailbox mSoundMailbox;
  std::unique_ptr<ServerInstance> mServerInstance;
  std::unique_ptr<SoundManager> mSoundManager;
  // A flag of its own says whether the display is known: the first announcement comes from nobody, and a null mailbox
  // would take it for the display's mail.
  bool mIsDisplayKnown = false;
  Mailbox* mDisplayMailbox = nullptr;
  std::uint32_t mLastPing = 0;
  RequestQueue mRequests;
  MusicOrders mMusic;
  Repository mRepository;
  WorldSynchronizer mWorld;
  ClientState mState = eClientStateNotConnected;
};

}  // namespace tolva
