#pragma once

#include <deque>
#include <optional>
#include <string>
#include <unordered_map>

#include "protocol/WorldPoint.h"

namespace tolva {

// Where players stood when they left the world, by name, until the server ends. Holds 4096 names and then drops the
// oldest.
class LastPlaces {
 public:
  void Remember(const std::string& name, WorldPoint point);
  std::optional<WorldPoint> Find(const std::string& name) const;

 private:
  std::unordered_map<std::string, WorldPoint> mPlaces;
  // Oldest first.
  std::deque<std::string> mNames;
};

}  // namespace tolva
