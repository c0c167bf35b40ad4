#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "foundation/InfoHandler.h"
#include "foundation/LogRateLimiter.h"
#include "protocol/AreaPackets.h"
#include "protocol/GamePackets.h"
#include "protocol/InternPackets.h"
#include "world/Repository.h"

namespace tolva {

// Keeps the repository's map in sync with the server: applies the server's packets, requests areas, and reads and
// writes the area cache. Used on the controller's thread; its traces name the controller, ClientBase.
//
// Holds the repository's lock during each change, but not while it calls the `Outlets`. Packets remain the caller's,
// who forwards them to the display unless an operation says otherwise. Packets for another level than the map's, or for
// places outside it, change nothing.
class WorldSynchronizer {
 public:
  // Makes a request; null when it is no longer needed.
  using MakeRequest = std::function<std::unique_ptr<Packet>()>;
  struct Outlets {
    // Queues a request, to be made and sent to the server when it is due. Requests keep their order.
    std::function<void(MakeRequest)> askServer;
    // Drops all requests that are still queued.
    std::function<void()> forgetRequests;
    std::function<void(std::unique_ptr<Packet>)> toDisplay;
  };

  // `cacheDirectory` ends with '/'; if it does not exist, every area comes from the server. Borrows the repository and
  // the log writer.
  WorldSynchronizer(Repository& repository, std::string cacheDirectory, Outlets outlets, InfoHandler& infoHandler);

  // Places map and player, drops the requests of the previous placement, starts a full synchronization and requests all
  // 49 areas. False when the packet names no field: it then only logs one line per run, and the display must not get
  // the packet.
  [[nodiscard]] bool SynchronizeMap(const PacketCharPosition& packet);
  // Queues a request that loads the area from the cache and sends its version to the server, unless the area has left
  // the map by then. Does nothing when r or c is 7 or more.
  void SynchronizeArea(std::uint8_t r, std::uint8_t c);
  // Counts the server's answer for one area (its ground, or that the cached version is current). During a full
  // synchronization, sends the progress to the display.
  void CountAreaAnswer();

  void UpdateAreaGround(const PacketAreaGround& packet);
  void UpdateAreaVolu(const PacketAreaVolu& packet);

  void AddChar(const PacketAddChar& packet);
  void RemoveChar(const PacketRemoveChar& packet);
  // Does nothing when the target is outside the map or occupied. When the player's own character enters another area,
  // the map follows it.
  void MoveChar(const PacketMove& packet);
  void UpdateMapAfterMove();

  // Shows the packet's text as said by the character on its field.
  void ShowChatMessage(const PacketGameChatMsg& packet);

 private:
  template <typename Body>
  void Locked(Body&& body);
  bool IsOnLevel(const AreaPosition& position) const;
  Area* FindArea(const AreaPosition& position) const;
  Field* FindField(const FieldPosition& position) const;
  template <typename Change>
  void UpdateArea(const AreaHeader& header, Change&& change);
  void SynchronizeNewAreas(Direction shift);
  std::unique_ptr<Packet> MakeAreaRequest(const AreaPosition& position);
  void SendStatus();
  void LogBadPlacement();

  Repository& mRepository;
  std::string mCacheDirectory;
  Outlets mOutlets;
  InfoHandler& mInfoHandler;
  std::uint16_t mAreaSyncTotal = 0;
  std::uint16_t mAreaSyncCount = 0;
  bool mHasLoggedPlacement = false;
  LogRateLimiter mLostCharacters;
};

}  // namespace tolva
