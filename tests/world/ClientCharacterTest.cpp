#include <gtest/gtest.h>

#include "world/ClientCharacter.h"

namespace tolva::test {
namespace {

TEST(ClientCharacterTest, SlidesInStepsFromTheFieldItLeft) {
  const struct {
    Direction direction;
    std::int32_t x, y;
  } cases[] = {{Direction::North, 0, 36},        {Direction::NorthEast, -38, 18}, {Direction::East, -76, 0},
               {Direction::SouthEast, -38, -18}, {Direction::South, 0, -36},      {Direction::SouthWest, 38, -18},
               {Direction::West, 76, 0},         {Direction::NorthWest, 38, 18},  {Direction::None, 0, 0}};
  for (const auto& test : cases) {
    SCOPED_TRACE(static_cast<std::uint32_t>(test.direction));
    ClientCharacter character;
    character.StartMove(test.direction, 1000);
    character.Animate(1019);  // too early
    for (int step = 0; step <= 19; ++step) {
      ASSERT_EQ(character.GetOffsetX(), test.x * (19 - step) / 19) << step;
      ASSERT_EQ(character.GetOffsetY(), test.y * (19 - step) / 19) << step;
      ASSERT_EQ(character.GetFrame(), (1 + step / 6) % 5) << "a walking frame takes 120 ms";
      ASSERT_EQ(character.IsMoving(), step < 19) << step;
      character.Animate(1020 + 20u * static_cast<unsigned>(step));
    }
  }
}

}  // namespace
}  // namespace tolva::test
