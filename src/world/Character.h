#pragma once

#include "protocol/Direction.h"

namespace tolva {

class Field;

// Somebody who can stand on a field. Used under the repository's lock only.
class Character {
 public:
  Character() = default;
  // Leaves the field first, so that no field points to a destroyed character.
  virtual ~Character();
  Character(const Character&) = delete;
  Character& operator=(const Character&) = delete;

  // Not owned; null while it stands nowhere.
  Field* GetField() const { return mField; }
  // Only for Field, which keeps both pointers consistent.
  void SetField(Field* field) { mField = field; }
  Direction GetDirection() const { return mDirection; }

 protected:
  Field* mField = nullptr;
  Direction mDirection = Direction::South;
};

}  // namespace tolva
