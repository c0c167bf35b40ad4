#include "world/Field.h"

#include "foundation/Guard.h"
#include "world/Area.h"
#include "world/Character.h"

namespace tolva {

Field::~Field() {
  if (mCharacter != nullptr) mCharacter->SetField(nullptr);
}

template <typename Part>
void Field::ChangeGround(Part& member, Part value) {
  if (member == value) return;
  member = value;
  if (mArea != nullptr) mArea->NoteGroundChange();
}

void Field::SetGroundId(std::uint32_t id) { ChangeGround(mGroundId, id); }

void Field::SetSmoothness(std::uint8_t smoothness) {
  ChangeGround(mSmoothness, static_cast<std::uint8_t>(smoothness & 0x0F));
}

bool Field::AddCharacter(Character* character) {
  return Guard("Field", "AddCharacter", [&] {
    if (IsOccupied()) return false;
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
