#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>

#include "protocol/Direction.h"
#include "protocol/FieldPosition.h"
#include "world/Area.h"
#include "world/Character.h"

namespace tolva {

// The 7 by 7 areas around the player. Area [r][c] lies r - 3 areas in x and c - 3 areas in y from the center [3][3].
// Always holds all 49, linked with each other. Takes no lock: callers hold the repository's.
class ClientMap {
 public:
  ClientMap();
  virtual ~ClientMap();
  ClientMap(const ClientMap&) = delete;
  ClientMap& operator=(const ClientMap&) = delete;

  // The map owns its areas. Null when r or c is 7 or more.
  Area* GetAreaAt(std::uint8_t r, std::uint8_t c) const;
  Area* GetCenterArea() const { return mAreas[kMapCenter][kMapCenter].get(); }
  // The distance, in areas, from the center to `area`, which is one of this map's.
  Step GetStepsFromCenter(const Area& area) const;
  // The area with these region and area numbers, or null. Levels are not compared: all areas share the center's.
  Area* GetArea(const AreaPosition& position) const;
  // Null when the map has no such area or the area no such field. Accepts any position that the wire can carry.
  Field* GetField(const FieldPosition& position) const;

  // Places the character on the field and takes ownership of it. Destroys it when the field is occupied.
  void AddCharacter(Field& field, std::unique_ptr<Character> character);
  // Takes the character off the field and destroys it if the map owns it. The map does not own characters that were
  // placed with Field::AddCharacter, such as the player's own.
  void RemoveCharacter(Field& field);
  // The number of characters that the map owns.
  std::size_t GetCharacterCount() const { return mCharacters.size(); }

  // Resets all areas and places the square in the world with this area in the center.
  void SetMapCoordinatesByCenter(const AreaPosition& center);
  // Places `area`, one of this map's, and relative to it every area that is not placed yet.
  void SetAreaCoordinates(Area& area, const AreaPosition& position);
  // Clears the area's position and version and removes its characters; ground and volu stay. Does nothing when r or c
  // is 7 or more.
  void ResetArea(std::uint8_t r, std::uint8_t c);

  // Moves the square by one area in the opposite direction, so the areas it keeps move in `direction` within it. Areas
  // that leave it are destroyed with their characters; new ones are empty. Ignores values other than the eight
  // directions.
  void ShiftAreas(Direction direction);
  void ShiftAreasToNorthEast();
  void ShiftAreasToSouthEast();
  void ShiftAreasToSouthWest();
  void ShiftAreasToNorthWest();

 private:
  using AreaSquare = std::array<std::array<std::unique_ptr<Area>, kMapEdge>, kMapEdge>;

  void Initialize();
  void Terminate() noexcept;
  void ResetAllAreas();
  void SetAllNeighbors();
  void SetNeighborsOfBlock(int firstR, int lastR, int firstC, int lastC);
  void ShiftBy(Direction direction);
  void RemoveCharactersOf(Area& area);

  AreaSquare mAreas;
  std::unordered_map<const Character*, std::unique_ptr<Character>> mCharacters;
};

}  // namespace tolva
