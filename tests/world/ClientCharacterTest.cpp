#include <gtest/gtest.h>

#include "world/ClientCharacter.h"

namespace tolva {
namespace {

TEST(ClientCharacterTest, SlidesInStepsFromWhereItCameFrom) {
  constexpr std::int32_t kOffsets[][2] = {{0, 36},   {-38, 18}, {-76, 0}, {-38, -18}, {0, -36},
                                          {38, -18}, {76, 0},   {38, 18}, {0, 0}};
  for (std::uint32_t d = 0; d < 9; ++d) {
    ClientCharacter character;
    character.StartMove(static_cast<Direction>(d), 1000);
    character.Animate(1019);  // too early
    for (int step = 0; step <= 19; ++step) {
      ASSERT_EQ(character.GetOffsetX(), kOffsets[d][0] * (19 - step) / 19) << d << ' ' << step;
      ASSERT_EQ(character.GetOffsetY(), kOffsets[d][1] * (19 - step) / 19) << d << ' ' << step;
      ASSERT_EQ(character.GetFrame(), (1 + step / 6) % 5) << "walks on every 120 ms";
      ASSERT_EQ(character.IsMoving(), step < 19);
      character.Animate(1020 + 20u * static_cast<unsigned>(step));
    }
  }
}

}  // namespace
}  // namespace tolva
