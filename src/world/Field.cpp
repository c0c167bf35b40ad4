#include "world/Field.h"

#include "foundation/Guard.h"
#include "world/Character.h"

namespace tolva {

Field::~Field() {
  if (mCharacter != nullptr) mCharacter->SetField(nullptr);
}

bool Field::AddCharacter(Character* character) {
  return Guard("Field", "AddCharacter", [&] {
    if (mCharacter != nullptr) return false;
    mCharacter = character;
    mOccupied = 1;
    character->SetField(this);
    return true;
  });
}

bool Field::RemoveCharacter() {
  return Guard("Field", "RemoveCharacter", [&] {
    if (mCharacter != nullptr) mCharacter->SetField(nullptr);
    mCharacter = nullptr;
    mOccupied = 0;
    return true;
  });
}

}  // namespace tolva
