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

// Keeps the repository's map in step with the server: takes the server's packets, asks for areas, and reads and writes
// the area cache. Used on the controller's thread; its errors name the controller, for which it works.
//
// Takes the repository's lock itself, for the whole of each change, and calls `Outlets` only when it has given it back.
// The packets that it is given stay the caller's, who passes them on to the display unless told otherwise. World
// packets of another level than the map's, or of places outside it, change nothing.
class WorldSynchronizer {
 public:
  // Makes a request; null when there is nothing to ask any more.
  using MakeRequest = std::function<std::unique_ptr<Packet>()>;
  struct Outlets {
    // Keeps the request until it is due, makes it then and sends it to the server, in the order of the calls.
    std::function<void(MakeRequest)> askServer;
    // Drops all that have not been made.
    std::function<void()> forgetRequests;
    std::function<void(std::unique_ptr<Packet>)> toDisplay;
  };

  // `cacheDirectory` ends with '/'; without that directory every area comes from the server. Repository and log writer
  // are borrowed.
  WorldSynchronizer(Repository& repository, std::string cacheDirectory, Outlets outlets, InfoHandler& infoHandler);

  // Places map and player, starts a full synchronisation and asks for all 49 areas. False, with nothing done, when the
  // packet's numbers name no field: then the display must not see it either, and one log line a run says so. What is
  // still to be asked for the placement before is forgotten.
  [[nodiscard]] bool SynchronizeMap(const PacketCharPosition& packet);
  // When its turn comes, loads the area from the cache and tells the server which version that is; nothing if it has
  // left the map by then. Nothing when r or c is 7 or more.
  void SynchronizeArea(std::uint8_t r, std::uint8_t c);
  // Counts the server's answer for one area (its ground, or that the cached version is current) and shows the display
  // the progress of a running full synchronisation.
  void CountAreaAnswer();

  void UpdateAreaGround(const PacketAreaGround& packet);
  void UpdateAreaVolu(const PacketAreaVolu& packet);

  void AddChar(const PacketAddChar& packet);
  void RemoveChar(const PacketRemoveChar& packet);
  // Nothing happens when the target is outside the map or taken. When the player's own character has come into another
  // area, the map follows it.
  void MoveChar(const PacketMove& packet);
  void UpdateMapAfterMove();

  // Lets the character on the packet's field say the packet's text.
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
