#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tolva {

// Why the client would not show the PNG picture as its painter intended; empty if it would. The client has one
// see-through color, (255, 0, 255), and surfaces with 5, 6 and 5 bits for red, green and blue, so an opaque color close
// to that one would become see-through too.
std::string FindPictureFault(std::span<const std::uint8_t> bytes);

}  // namespace tolva
