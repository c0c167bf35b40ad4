#pragma once

#include <cstdint>
#include <vector>

#include <SDL.h>

#include "display/Labels.h"
#include "protocol/Direction.h"

namespace tolva {

class ClientCharacter;
class Field;
class GameGraphics;
class InfoHandler;
class Repository;

// Draws what stands on the ground around the player's character, which is in the middle of the window: things,
// characters and what they say.
//
// All operations read the map: whoever calls them holds the repository's lock. Display thread only. Errors name the
// game screen, of which this is a part.
class WorldPainter {
 public:
  // All four stay the caller's and must outlive the painter.
  WorldPainter(SDL_Surface& window, GameGraphics& graphics, Repository& repository, InfoHandler& logger);

  // How far the ground grid must lie to the right of, or below, the place where its middle is in the middle of the
  // window, so that the player's character is there instead. In pixels; 0 while the character stands on no field.
  std::int32_t GetBlitOffsetX() const;
  std::int32_t GetBlitOffsetY() const;

  // Draws the things and characters of all fields that can be seen, from back to front, and over them what the
  // characters say. Animates all characters but the player's own. Nothing while that one stands on no field.
  void BlitObjects();

 private:
  // A label's place in this frame.
  struct PlacedLabel {
    TextBox& box;
    std::int16_t x;
    std::int16_t y;
  };

  // Where the field lies, in fields from field (0, 0) of the map's center area; can be outside that area.
  Step GetFieldsFromCenter(const Field& field) const;
  // Draws two interlocking rows of fields: `first` and those to the East, and half a tile lower those to the SouthWest
  // of each. `first` can be null, as can any other field of the row.
  void BlitRow(const Field* first, int x, int y);
  void BlitField(const Field* field, int x, int y);
  void BlitCharacter(ClientCharacter& character, int x, int y);
  void AddLabel(TextBox& box, int spriteX, int y);

  SDL_Surface& mWindow;
  GameGraphics& mGraphics;
  Repository& mRepository;
  Labels mMessages;
  Labels mNames;
  std::vector<PlacedLabel> mPlacedLabels;  // of the frame that is being drawn
};

}  // namespace tolva
