#pragma once

#include <string>

#include <SDL.h>
#include <gtest/gtest.h>

namespace tolva::test {

// Whether `part` of `surface` is pixel by pixel the picture goldens/<name>.png beside the test. If not, what was drawn
// is kept in the build's folder; the message names the file. With TOLVA_RENEW_GOLDENS=1 in the environment the picture
// is written instead. The test program needs Golden.cpp among its sources.
::testing::AssertionResult MatchesGolden(const std::string& name, const SDL_Surface& surface, const SDL_Rect& part);

}  // namespace tolva::test
