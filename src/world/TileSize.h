#pragma once

namespace tolva {

// The diamond that a field is on the screen, in pixels. One step East moves by its width, one step South by its height.
constexpr int kTileWidth = 76;
constexpr int kTileHeight = 36;

}  // namespace tolva
