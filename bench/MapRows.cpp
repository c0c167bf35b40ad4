#include <string>

#include "Rows.h"
#include "harness/Table.h"
#include "plain/ClientMap.h"
#include "world/ClientMap.h"

namespace tolva::bench {

void AddMapRows(Table& table) {
  constexpr AreaPosition kCenter = {10, 20, 4, 4, 0};
  constexpr std::size_t kLinkBytes = std::size_t{kMapAreas} * kAreaFields * kDirectionCount * sizeof(Field*);
  tolva::ClientMap map;
  map.SetMapCoordinatesByCenter(kCenter);
  plain::ClientMap plainMap(kCenter);
  CopyRing links(kLinkBytes, 2 * kLinkBytes);
  const struct {
    const char* name;
    Direction direction;
    double aim;
  } shifts[] = {{"A shift of the map by one area", Direction::NorthEast, 2.2},
                {"A diagonal shift of the map", Direction::East, 4}};
  for (const auto& shift : shifts) {
    const auto move = [&](auto& moved) { return PerCall([&] { moved.ShiftAreas(shift.direction); }); };
    table.Run(
        {shift.name, move(map), move(plainMap), "memcpy of the fields' links", PerCall([&] { links(); }), shift.aim});
  }
}

}  // namespace tolva::bench
