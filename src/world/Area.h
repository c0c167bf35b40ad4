#pragma once

#include <array>
#include <bitset>
#include <cstdint>

#include "protocol/Direction.h"
#include "protocol/FieldPosition.h"
#include "protocol/PacketField.h"
#include "world/Field.h"

namespace tolva {

// 24 by 24 fields of the world, at one version of their content. Used under the repository's lock only.
class Area {
 public:
  Area() = default;
  virtual ~Area() = default;
  Area(const Area&) = delete;
  Area& operator=(const Area&) = delete;

  // Null when either coordinate is 24 or more.
  Field* GetField(std::uint8_t fx, std::uint8_t fy);
  const Field* GetField(std::uint8_t fx, std::uint8_t fy) const;
  // All fields; field (Fx, Fy) is at index Fx * kAreaEdge + Fy, as in packets and in the cache file.
  std::array<Field, kAreaFields>& GetFields() { return mFields; }
  const std::array<Field, kAreaFields>& GetFields() const { return mFields; }

  // Not owned; null at the edge of the map and for values other than the eight directions.
  Area* GetNeighbor(Direction direction) const {
    return IsDirection(direction) ? mNeighbors[static_cast<std::uint32_t>(direction)] : nullptr;
  }
  // `direction` is one of the eight. The fields' links across that side follow with the next InitFields.
  void SetNeighbor(Direction direction, Area* area);

  // The server's number for this version of the content; 0 when none of it came from the server.
  std::uint8_t GetVersion() const { return mVersion; }
  void SetVersion(std::uint8_t version) { mVersion = version; }

  // Identifies the state of the ground: 0 while all fields have their initial ground, then a number that no other state
  // of any area has had. A picture of the ground is stale when this has changed.
  std::uint64_t GetGroundState() const { return mGroundState; }
  // For the area's fields: the ground of one has changed.
  void NoteGroundChange();

  const AreaPosition& GetPosition() const { return mPosition; }
  void SetPosition(const AreaPosition& position);
  // Whether the area has been given a position. No position can express that: all are valid, including zeros.
  bool IsPlaced() const { return mPlaced; }
  // Clears position and version. The fields stay as they are.
  void Reset();

  // Links every field with its neighbors, across the area's edge too, and sets its place. Call it again whenever the
  // area's neighbors have changed: it then links only across the sides where they have, for when a map moves by one
  // area, most of its areas keep all their neighbors.
  void InitFields();

  // Writes the area's cache file (docs/formats.md) into the directory, whose name ends with '/'. The old file stays
  // until the new one is complete. False when it could not be written.
  bool Save(const char* directory) const;
  // Reads content and version from the cache file of the area's position. False, with nothing changed, unless that is a
  // complete regular file with this position. Never blocks on a pipe.
  bool Load(const char* directory);

 private:
  void LinkInside();
  void LinkAcross(Direction side);

  std::array<Field, kAreaFields> mFields;
  std::array<Area*, kDirectionCount> mNeighbors = {};
  // Whether InitFields has linked the fields with each other, and for which sides their links across it are out of
  // date.
  bool mLinkedInside = false;
  std::bitset<kDirectionCount> mStaleSides;
  std::uint8_t mVersion = 0;
  std::uint64_t mGroundState = 0;
  AreaPosition mPosition;
  bool mPlaced = false;
};

}  // namespace tolva
