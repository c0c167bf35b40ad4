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

// One place of the world: its ground, what stands on it, and the way to its eight neighbours. Lives inside its Area;
// reached under the repository's lock only.
class Field {
 public:
  Field() = default;
  // Whoever stands here stands nowhere afterwards.
  virtual ~Field();
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  // Lets the character, which stays its owner's, stand here and tells it so. False, with nothing changed, when somebody
  // stands here already. The character must not stand on another field.
  bool AddCharacter(Character* character);
  // Takes whoever stands here off the field; always true.
  bool RemoveCharacter();
  // Null when nobody stands here.
  Character* GetCharacter() const { return mCharacter; }

  std::uint32_t GetVoluId() const { return mVoluId; }
  void SetVoluId(std::uint32_t id) { mVoluId = id; }
  std::uint32_t GetGroundId() const { return mGroundId; }
  void SetGroundId(std::uint32_t id);
  // How wide the transition to other ground is, 0 to 15; of what is set the low 4 bits count.
  std::uint8_t GetSmoothness() const { return mSmoothness; }
  void SetSmoothness(std::uint8_t smoothness);

  // Where in its area the field lies, and that area; set when the area's fields are linked.
  std::uint8_t GetFx() const { return mFx; }
  std::uint8_t GetFy() const { return mFy; }
  Area* GetArea() const { return mArea; }
  void SetPlace(Area* area, std::uint8_t fx, std::uint8_t fy) {
    mArea = area;
    mFx = fx;
    mFy = fy;
  }

  // Null where the map ends, and for anything that is not one of the eight directions.
  Field* GetNeighbor(Direction direction) const {
    return IsDirection(direction) ? mNeighbors[static_cast<std::uint32_t>(direction)] : nullptr;
  }
  // `direction` is one of the eight.
  void SetNeighbor(Direction direction, Field* field) { mNeighbors[static_cast<std::uint32_t>(direction)] = field; }

 private:
  // Sets `member`, a part of the ground, and tells the area of the change.
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
