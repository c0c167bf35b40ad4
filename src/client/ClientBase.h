#pragma once

#include <cstdint>
#include <memory>

#include "client/MusicOrders.h"
#include "client/RequestQueue.h"
#include "media/SoundManager.h"
#include "network/ServerInstance.h"
#include "protocol/ChatPackets.h"
#include "protocol/LoginPackets.h"
#include "threads/Mailbox.h"
#include "threads/ManagerThread.h"
#include "world/Repository.h"
#include "world/WorldSynchronizer.h"

namespace tolva {

enum ClientState : std::uint32_t { eClientStateNotConnected = 0, eClientStateInChat = 1, eClientStateInGame = 2 };

// The controller: passes packets between the display, the server instance and the sound manager, keeps the world that
// it shares with the display in step with the server, keeps the connection alive with pings, and ends all threads in
// order when the player or the server quits.
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
  // Where a packet goes after it has been handled; to nobody means that it is deleted.
  enum class Target { Server, Display, Nobody };

  // A handler for a dispatch: calls the operation with the packet and returns the target.
  template <typename PacketX>
  auto Do(void (ClientBase::*operation)(PacketX&), Target target) {
    return [this, operation, target](PacketX& packet) {
      (this->*operation)(packet);
      return target;
    };
  }

  void HandleMailFromDisplay(std::unique_ptr<Packet> packet);
  void HandleMailFromServer(std::unique_ptr<Packet> packet);
  void PassOn(std::unique_ptr<Packet> packet, Target target);

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
  // These wait until they are due.
  void AskForServerVersion(const PacketServerInfo& question);
  void PlayMusic(const PacketMusicPlay& order) { mMusic.Order(order); }
  void StopMusic(const PacketMusicStop& order) { mMusic.Order(order); }
  void LoseConnection(const PacketInternConnectionLost&);
  void EnterChat(const PacketEnterChatAccept&);
  void EnterGame(const PacketEnterGameAccept&);
  void ServerQuit(const PacketQuit& quit);
  // Ends the other threads, one after the other, and this one after this pass.
  void Quit(const PacketQuit& quit);

  // The operations of WorldSynchronizer.
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
  // A flag, because a null mailbox cannot mean "unknown": the display's announcement has a null source, too.
  bool mIsDisplayKnown = false;
  Mailbox* mDisplayMailbox = nullptr;  // belongs to ClientMain
  std::uint32_t mLastPing = 0;
  RequestQueue mRequests;
  MusicOrders mMusic;
  Repository mRepository;
  WorldSynchronizer mWorld;
  ClientState mState = eClientStateNotConnected;
};

}  // namespace tolva
