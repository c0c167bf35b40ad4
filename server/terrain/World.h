#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "protocol/FieldPosition.h"
#include "server/terrain/AreaContent.h"

namespace tolva {

// An endless sea of islands, computed from a seed and coordinates alone: the same for the same seed in every run and on
// every machine, and without an end where region numbers wrap around. All levels look alike. Keeps the areas that
// were asked for last; used on one thread.
class World {
 public:
  explicit World(std::uint64_t seed);
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  // The content of an area whose numbers are in range (see IsInRange in protocol/Steps.h).
  std::shared_ptr<const AreaContent> GetArea(const AreaPosition& area);
  // Whether a character could stand there; false for numbers out of range.
  bool IsWalkable(const FieldPosition& field);

  // Fields around the arrival village's square, all walkable and distinct, the best first: where players appear. At
  // least 100.
  const std::vector<FieldPosition>& GetArrivals() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> mImpl;
};

}  // namespace tolva
