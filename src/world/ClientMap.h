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

// The 7 by 7 areas around the player. Area [r][c] lies r - 3 steps in x and c - 3 steps in y from the centre [3][3].
// Always holds all 49, linked with each other. Takes no lock: who uses it holds the repository's.
class ClientMap {
 public:
  ClientMap();
  virtual ~ClientMap();
  ClientMap(const ClientMap&) = delete;
  ClientMap& operator=(const ClientMap&) = delete;

  // Null when r or c is 7 or more.
  Area* GetAreaAt(std::uint8_t r, std::uint8_t c) const;
  Area* GetCenterArea() const { return mAreas[kMapCenter][kMapCenter].get(); }
  // How many areas the area, one of this map's, lies from the centre.
  Step GetStepsFromCenter(const Area& area) const;
  // The area at these region and area numbers, or null. The level is not compared: all areas share the centre's.
  Area* GetArea(const AreaPosition& position) const;
  // Null when the map has no such area, or the area no such field. Any bytes may stand in the position.
  Field* GetField(const FieldPosition& position) const;

  // Lets the character stand on the field; the map owns it from here on. Discarded when somebody stands there already.
  void AddCharacter(Field& field, std::unique_ptr<Character> character);
  // Takes whoever stands on the field off it, and frees it if it is the map's. One that was put on the field directly,
  // as the player's own is, is not.
  void RemoveCharacter(Field& field);
  // How many characters the map owns.
  std::size_t GetCharacterCount() const { return mCharacters.size(); }

  // Resets all areas and places the square in the world with this area in the centre.
  void SetMapCoordinatesByCenter(const AreaPosition& center);
  // Gives the area, one of this map's, the position, and every area not placed yet the one that follows from it.
  void SetAreaCoordinates(Area& area, const AreaPosition& position);
  // Takes the area out of the world and all characters off it, but leaves its ground and volu. Nothing when r or c is 7
  // or more.
  void ResetArea(std::uint8_t r, std::uint8_t c);

  // Moves the square one area, so that the kept areas move in the given direction within it. What falls out is
  // destroyed with the characters on it; what comes in is empty. Nothing for other values than the eight directions.
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
