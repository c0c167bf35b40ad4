#include "world/Character.h"

#include "world/Field.h"

namespace tolva {

Character::~Character() {
  if (mField != nullptr) mField->RemoveCharacter();
}

}  // namespace tolva
