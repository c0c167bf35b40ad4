#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tolva {

// Why the client could not show the PNG picture as its painter meant it; empty when it can. The client knows one
// see-through color, (255, 0, 255), and 16-bit surfaces with 5, 6 and 5 bits for red, green and blue: opaque colors
// close to that one would become see-through too.
std::string FindPictureFault(std::span<const std::uint8_t> bytes);

}  // namespace tolva
