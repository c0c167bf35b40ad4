#pragma once

#include <array>
#include <cstdint>

#include "protocol/Direction.h"
#include "protocol/FieldPosition.h"
#include "protocol/PacketField.h"
#include "world/Field.h"

namespace tolva {

// 24 by 24 fields of the world, at one version of their content. Reached under the repository's lock only.
class Area {
 public:
  Area() = default;
  virtual ~Area() = default;
  Area(const Area&) = delete;
  Area& operator=(const Area&) = delete;

  // Null when either coordinate is 24 or more.
  Field* GetField(std::uint8_t fx, std::uint8_t fy);
  const Field* GetField(std::uint8_t fx, std::uint8_t fy) const;
  // All fields; field (Fx, Fy) stands at Fx * kAreaEdge + Fy, as in packets and in the cache file.
  std::array<Field, kAreaFields>& GetFields() { return mFields; }
  const std::array<Field, kAreaFields>& GetFields() const { return mFields; }

  // Null where the map ends, and for anything that is not one of the eight directions. Not owned.
  Area* GetNeighbor(Direction direction) const {
    return IsDirection(direction) ? mNeighbors[static_cast<std::uint32_t>(direction)] : nullptr;
  }
  // `direction` is one of the eight.
  void SetNeighbor(Direction direction, Area* area) { mNeighbors[static_cast<std::uint32_t>(direction)] = area; }

  // The version of the content as the server counts it; 0 when there is nothing of the server's.
  std::uint8_t GetVersion() const { return mVersion; }
  void SetVersion(std::uint8_t version) { mVersion = version; }

  // Identifies the state of the ground: a number that no other state of any area has had, and 0 while every field of
  // the area has the ground that it began with. What is drawn from the ground is stale when this has changed.
  std::uint64_t GetGroundState() const { return mGroundState; }
  // For the area's fields, as soon as they are linked: the ground of one has changed.
  void NoteGroundChange();

  const AreaPosition& GetPosition() const { return mPosition; }
  void SetPosition(const AreaPosition& position);
  // Whether the area has a place in the world. No position says so by itself: all are valid, zeros too.
  bool IsPlaced() const { return mPlaced; }
  // No place in the world and version 0. The fields stay as they are.
  void Reset();

  // Links every field with its neighbours, in the neighbour areas too, and tells it where it lies. To be run again
  // whenever the area's neighbours have changed.
  void InitFields();

  // Writes the area's cache file (docs/formats.md) into the directory, whose name ends with '/'. The old file stays
  // until the new one is whole. False when it could not be written.
  bool Save(const char* directory) const;
  // Reads content and version from the cache file for the area's position. False, with nothing changed, when there is
  // no such file or it is not one of this area, whole and regular. Never waits for a writer.
  bool Load(const char* directory);

 private:
  Field* FieldAcross(int fx, int fy);

  std::array<Field, kAreaFields> mFields;
  std::array<Area*, kDirectionCount> mNeighbors = {};
  std::uint8_t mVersion = 0;
  std::uint64_t mGroundState = 0;
  AreaPosition mPosition;
  bool mPlaced = false;
};

}  // namespace tolva
