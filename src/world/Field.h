#pragma once

#include <array>
#include <cstdint>

#include "protocol/Direction.h"
#include "protocol/PacketField.h"

namespace tolva {

class Area;
class Character;

// The ground of a field that no server has described yet.
constexpr std::uint32_t kDefaultGroundId = 100000;

// One field of the world: its ground, what stands on it, and links to its eight neighbors. Part of its Area; used under
// the repository's lock only.
class Field {
 public:
  Field() = default;
  // A character that stands here stands nowhere afterward.
  virtual ~Field();
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  // Places the character, which is not owned and must not stand on another field. False, with nothing changed, when the
  // field is occupied.
  bool AddCharacter(Character* character);
  // Takes the character, if there is one, off the field. Always true.
  bool RemoveCharacter();
  bool IsOccupied() const { return mOccupied != 0; }
  // Not owned; null unless the field is occupied.
  Character* GetCharacter() const { return mCharacter; }

  std::uint32_t GetVoluId() const { return mVoluId; }
  void SetVoluId(std::uint32_t id) { mVoluId = id; }
  std::uint32_t GetGroundId() const { return mGroundId; }
  void SetGroundId(std::uint32_t id);
  // The width of the transition to different ground, 0 to 15. Only the low 4 bits of what is set count.
  std::uint8_t GetSmoothness() const { return mSmoothness; }
  void SetSmoothness(std::uint8_t smoothness);

  // The field's place in its area, and that area; set when the area's fields are linked.
  std::uint8_t GetFx() const { return mFx; }
  std::uint8_t GetFy() const { return mFy; }
  Area* GetArea() const { return mArea; }
  void SetPlace(Area* area, std::uint8_t fx, std::uint8_t fy) {
    mArea = area;
    mFx = fx;
    mFy = fy;
  }

  // Not owned; null at the edge of the map and for values other than the eight directions.
  Field* GetNeighbor(Direction direction) const {
    return IsDirection(direction) ? mNeighbors[static_cast<std::uint32_t>(direction)] : nullptr;
  }
  // `direction` is one of the eight.
  void SetNeighbor(Direction direction, Field* field) { mNeighbors[static_cast<std::uint32_t>(direction)] = field; }

 private:
  // Sets `member`, a part of the ground, and notifies the area of a change.
  template <typename Part>
  void ChangeGround(Part& member, Part value);

  std::uint32_t mVoluId = 0;
  std::uint32_t mGroundId = kDefaultGroundId;
  std::uint8_t mSmoothness = 0;
  std::uint8_t mFx = 0;
  std::uint8_t mFy = 0;
  Area* mArea = nullptr;
  std::array<Field*, kDirectionCount> mNeighbors = {};
  std::uint32_t mOccupied = 0;
  Character* mCharacter = nullptr;
};

}  // namespace tolva
