#include "world/WorldSynchronizer.h"

#include <optional>
#include <utility>

#include "foundation/Guard.h"
#include "foundation/Ticks.h"
#include "protocol/FieldPosition.h"

namespace tolva {

WorldSynchronizer::WorldSynchronizer(Repository& repository, std::string cacheDirectory, Outlets outlets,
                                     InfoHandler& infoHandler)
    : mRepository(repository),
      mCacheDirectory(std::move(cacheDirectory)),
      mOutlets(std::move(outlets)),
      mInfoHandler(infoHandler) {}

// Runs `body` with the lock held; not at all if the lock fails.
template <typename Body>
void WorldSynchronizer::Locked(Body&& body) {
  const SemaphoreLock lock(mRepository);
  if (lock.IsHeld()) body(mRepository.GetMap());
}

// The map's look-ups do not compare levels.
bool WorldSynchronizer::IsOnLevel(const AreaPosition& position) const {
  return position.mByLevel == mRepository.GetMap().GetCenterArea()->GetPosition().mByLevel;
}

Area* WorldSynchronizer::FindArea(const AreaPosition& position) const {
  return IsOnLevel(position) ? mRepository.GetMap().GetArea(position) : nullptr;
}

Field* WorldSynchronizer::FindField(const FieldPosition& position) const {
  return IsOnLevel(position) ? mRepository.GetMap().GetField(position) : nullptr;
}

bool WorldSynchronizer::SynchronizeMap(const PacketCharPosition& packet) {
  return Guard("ClientBase", "SynchronizeMap", [&] {
    if (!IsInRange(packet)) {
      LogBadPlacement();
      return false;
    }
    mOutlets.forgetRequests();
    Locked([&](ClientMap& map) {
      map.SetMapCoordinatesByCenter(packet);
      map.GetCenterArea()->GetField(packet.mByFx, packet.mByFy)->AddCharacter(&mRepository.GetPlayer());
    });
    mAreaSyncTotal = kMapAreas;
    mAreaSyncCount = 0;
    SendStatus();
    for (std::uint8_t r = 0; r < kMapEdge; ++r) {
      for (std::uint8_t c = 0; c < kMapEdge; ++c) SynchronizeArea(r, c);
    }
    return true;
  });
}

// Once a run: a server can send any number of them.
void WorldSynchronizer::LogBadPlacement() {
  if (std::exchange(mHasLoggedPlacement, true)) return;
  mInfoHandler.HandleInfo(new Info("The server placed the player on a field that does not exist", InfoLevel::Failure));
}

void WorldSynchronizer::SynchronizeArea(std::uint8_t r, std::uint8_t c) {
  Guard("ClientBase", "SynchronizeArea", [&] {
    // The position, because the area may have another place in the map when the request is due.
    std::optional<AreaPosition> position;
    Locked([&](ClientMap& map) {
      if (const Area* area = map.GetAreaAt(r, c)) position = area->GetPosition();
    });
    if (position) mOutlets.askServer([this, place = *position] { return MakeAreaRequest(place); });
  });
}

std::unique_ptr<Packet> WorldSynchronizer::MakeAreaRequest(const AreaPosition& position) {
  return Guard("ClientBase", "SynchronizeArea", [&] {
    std::unique_ptr<Packet> request;
    Locked([&](ClientMap&) {
      Area* area = FindArea(position);
      if (area == nullptr) return;
      area->Load(mCacheDirectory.c_str());
      request = std::make_unique<PacketAreaVersion>(AreaHeader{position, area->GetVersion()});
    });
    return request;
  });
}

void WorldSynchronizer::CountAreaAnswer() {
  ++mAreaSyncCount;
  if (mAreaSyncTotal != 0) SendStatus();
  if (mAreaSyncCount >= mAreaSyncTotal) mAreaSyncCount = mAreaSyncTotal = 0;
}

void WorldSynchronizer::SendStatus() {
  mOutlets.toDisplay(std::make_unique<PacketInternStatus>(mAreaSyncCount, mAreaSyncTotal));
}

void WorldSynchronizer::UpdateAreaGround(const PacketAreaGround& packet) {
  Guard("ClientBase", "UpdateAreaGround", [&] {
    UpdateArea(packet, [&](Field& field, std::size_t k) {
      field.SetGroundId(packet.mUintGround[k]);
      field.SetSmoothness(packet.mBySmoothness[k]);
    });
  });
}

void WorldSynchronizer::UpdateAreaVolu(const PacketAreaVolu& packet) {
  Guard("ClientBase", "UpdateAreaVolu",
        [&] { UpdateArea(packet, [&](Field& field, std::size_t k) { field.SetVoluId(packet.mUintVolu[k]); }); });
}

template <typename Change>
void WorldSynchronizer::UpdateArea(const AreaHeader& header, Change&& change) {
  Locked([&](ClientMap&) {
    Area* area = FindArea(header);
    if (area == nullptr) return;
    area->SetVersion(header.mByVersion);
    for (std::size_t k = 0; k < kAreaFields; ++k) change(area->GetFields()[k], k);
    // Failure is not reported: without a cache file the area is requested again next time.
    area->Save(mCacheDirectory.c_str());
  });
}

void WorldSynchronizer::AddChar(const PacketAddChar& packet) {
  Guard("ClientBase", "AddChar", [&] {
    Locked([&](ClientMap& map) {
      Field* field = FindField(packet);
      if (field != nullptr) map.AddCharacter(*field, std::make_unique<ClientCharacter>());
    });
  });
}

void WorldSynchronizer::RemoveChar(const PacketRemoveChar& packet) {
  Guard("ClientBase", "RemoveChar", [&] {
    bool isOnMap = false;
    Locked([&](ClientMap& map) {
      Field* field = FindField(packet);
      isOnMap = field != nullptr;
      if (isOnMap) map.RemoveCharacter(*field);
    });
    if (isOnMap || !mLostCharacters.Admit(mInfoHandler)) return;
    mInfoHandler.HandleInfo(new Info("Could not remove char", InfoLevel::Failure));
  });
}

void WorldSynchronizer::MoveChar(const PacketMove& packet) {
  Guard("ClientBase", "MoveChar", [&] {
    bool isPlayer = false;
    Locked([&](ClientMap&) {
      Field* from = FindField(packet);
      if (from == nullptr) return;
      Field* to = from->GetNeighbor(packet.mEnmDirection);
      ClientCharacter* character = ClientCharacter::On(*from);
      if (to == nullptr || character == nullptr || to->IsOccupied()) return;
      from->RemoveCharacter();
      to->AddCharacter(character);
      character->StartMove(packet.mEnmDirection);
      isPlayer = character == &mRepository.GetPlayer();
    });
    if (isPlayer) UpdateMapAfterMove();
  });
}

void WorldSynchronizer::UpdateMapAfterMove() {
  Guard("ClientBase", "UpdateMapAfterMove", [&] {
    Direction toCenter = Direction::None;
    Locked([&](ClientMap& map) {
      const Field* field = mRepository.GetPlayer().GetField();
      if (field == nullptr || field->GetArea() == map.GetCenterArea()) return;
      for (const Direction direction : kDirections) {
        if (field->GetArea()->GetNeighbor(direction) == map.GetCenterArea()) toCenter = direction;
      }
      map.ShiftAreas(toCenter);
    });
    if (toCenter != Direction::None) SynchronizeNewAreas(toCenter);
  });
}

// Requests the areas that a shift has brought in, on the side that the others moved away from. A shift along both axes
// brings in two edges, whose common corner is requested twice.
void WorldSynchronizer::SynchronizeNewAreas(Direction shift) {
  const auto edgeBehind = [](int step) { return static_cast<std::uint8_t>(step > 0 ? 0 : kMapEdge - 1); };
  const Step step = StepIn(shift);
  for (std::uint8_t i = 0; i < kMapEdge; ++i) {
    if (step.x != 0) SynchronizeArea(edgeBehind(step.x), i);
    if (step.y != 0) SynchronizeArea(i, edgeBehind(step.y));
  }
}

void WorldSynchronizer::ShowChatMessage(const PacketGameChatMsg& packet) {
  Locked([&](ClientMap&) {
    const Field* field = FindField(packet);
    ClientCharacter* character = field == nullptr ? nullptr : ClientCharacter::On(*field);
    if (character == nullptr) return;
    character->SetChatMessage(packet.mStrMsg);
    character->SetName(packet.mStrUser);
    character->SetMessageTick(GetTicks());
  });
}

}  // namespace tolva
