#pragma once

#include <string>

#include <SDL.h>
#include <gtest/gtest.h>

namespace tolva::test {

// Whether `surface` (any depth above 8 bits) is pixel by pixel, in 24 bits, the picture goldens/<name>.png beside the
// test. If not, what was drawn is kept as a PNG in the build's folder, whose path the message names. With
// TOLVA_RENEW_GOLDENS=1 in the environment the picture is written instead.
//
// Needs Golden.cpp among the test's sources. Draw what both SDL libraries draw alike.
::testing::AssertionResult MatchesGolden(const SDL_Surface& surface, const std::string& name);
// The same for a part that lies inside the surface.
::testing::AssertionResult MatchesGolden(const SDL_Surface& surface, const SDL_Rect& part, const std::string& name);

}  // namespace tolva::test
