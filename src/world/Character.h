#pragma once

#include "protocol/Direction.h"

namespace tolva {

class Field;

// What can stand on a field. Reached under the repository's lock only.
class Character {
 public:
  Character() = default;
  // Leaves the field first, so that no field ever points to a character that is gone.
  virtual ~Character();
  Character(const Character&) = delete;
  Character& operator=(const Character&) = delete;

  // Null while it stands nowhere.
  Field* GetField() const { return mField; }
  // For Field alone, which keeps both sides in step.
  void SetField(Field* field) { mField = field; }
  Direction GetDirection() const { return mDirection; }

 protected:
  Field* mField = nullptr;
  Direction mDirection = Direction::South;
};

}  // namespace tolva
