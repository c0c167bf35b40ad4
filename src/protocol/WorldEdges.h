#pragma once

#include <cstdint>

namespace tolva {

// The measures of the world. Fields form areas, areas form regions, and regions are numbered with 32 bits both ways;
// the numbers wrap around, so that the world has no border.

constexpr int kAreaEdge = 24;  // fields
constexpr int kAreaFields = kAreaEdge * kAreaEdge;

constexpr int kRegionEdge = 8;  // areas
constexpr int kRegionFields = kRegionEdge * kAreaEdge;

constexpr std::int64_t kWorldEdge = std::int64_t{kRegionFields} << 32;  // fields
constexpr std::int64_t kWorldAreas = std::int64_t{kRegionEdge} << 32;   // areas along the edge

// The map that a client holds: areas around the one its player stands in.
constexpr int kMapEdge = 7;  // areas
constexpr int kMapCenter = kMapEdge / 2;
constexpr int kMapAreas = kMapEdge * kMapEdge;

}  // namespace tolva
