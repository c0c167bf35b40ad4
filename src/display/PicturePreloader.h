#pragma once

#include <array>
#include <cstdint>
#include <set>

#include "protocol/FieldPosition.h"
#include "protocol/WorldEdges.h"

namespace tolva {

class Area;
class GameGraphics;
class Repository;

// Prepares the pictures of the land on the map before they are seen: a land that comes into view with 20 to 30 new
// pictures would else cost a frame of up to 30 ms. Only saves waiting: what a frame needs at once it loads itself.
//
// Whoever calls it holds the repository's lock. Display thread only.
class PicturePreloader {
 public:
  // Both stay the caller's and must outlive the preloader.
  PicturePreloader(GameGraphics& graphics, Repository& repository);

  // Does a small piece of what is left to do, areas near the player first: loads up to `count` pictures, or darkens one
  // that is still as bright or dark as before.
  void Prepare(int count);

 private:
  // The state of an area whose pictures are loaded or wanted.
  struct Examined {
    bool isExamined = false;
    AreaPosition position;
    std::uint64_t groundState = 0;
    std::uint8_t version = 0;
  };

  // Finds the unknown pictures of the nearest area that has changed.
  void ExamineNext();
  void Examine(const Area& area);

  GameGraphics& mGraphics;
  Repository& mRepository;
  std::array<std::uint8_t, kMapAreas> mPlaces;  // of the areas on the map, nearest to the center first
  std::array<Examined, kMapAreas> mExamined;    // by place on the map
  std::set<std::uint32_t> mWanted;
};

}  // namespace tolva
