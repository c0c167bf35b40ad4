#include "display/WorldPainter.h"

#include <algorithm>
#include <limits>

#include "display/FieldTiles.h"
#include "display/GroundGrid.h"
#include "display/MessageHistory.h"
#include "display/PictureIds.h"
#include "foundation/Guard.h"
#include "foundation/Ticks.h"
#include "media/GameGraphics.h"
#include "protocol/WorldEdges.h"
#include "world/Repository.h"

namespace tolva {
namespace {

constexpr char kModule[] = "ScreenGame";

// A character's picture in the sheet, and the height of the pictures of things. Both are as wide as a tile and end
// where the tile's picture ends; the rises are what they reach above it.
constexpr int kSpriteWidth = kTileWidth;
constexpr int kSpriteHeight = 114;
constexpr int kVoluHeight = 228;
constexpr int kSpriteRise = kSpriteHeight - kTilePictureHeight;
constexpr int kVoluRise = kVoluHeight - kTilePictureHeight;
static_assert(kSpriteRise == 77 && kVoluRise == 191);

// The ground rectangle in the middle of the grid begins with field (0, kAreaEdge / 2) of the center area. From the
// middle of field (0, 0) of that area it is this far to the middle of the rectangle.
constexpr int kToMiddleX = GameDisplayRect::kWidth / 2 + kTileWidth / 2 * (kAreaEdge / 2 - 1);
constexpr int kToMiddleY = GameDisplayRect::kHeight / 2 - kTileHeight / 2 * (kAreaEdge / 2);
static_assert(kToMiddleX == 874 && kToMiddleY == 0);

// How many more rows and columns are drawn than fit into the window: pictures reach beyond their fields.
constexpr int kExtraColumns = 4;
constexpr int kExtraRows = 7;
// This many rows more in the North: a thing that a step South brings into the window is already drawn while it is
// above.
constexpr int kRowsAbove = 2;

constexpr std::uint32_t kMessageMs = 10000;

std::int16_t Narrow(int value) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<int>(value, Limits::min(), Limits::max()));
}

const Field* Walk(const Field* field, Direction direction, int steps) {
  for (int step = 0; step < steps; ++step) field = Next(field, direction);
  return field;
}

}  // namespace

WorldPainter::WorldPainter(SDL_Surface& window, GameGraphics& graphics, Repository& repository, InfoHandler& logger)
    : mWindow(window),
      mGraphics(graphics),
      mRepository(repository),
      mMessages(kWhite, logger),
      mNames(kNameColor, logger) {}

Step WorldPainter::GetFieldsFromCenter(const Field& field) const {
  const Step areas = mRepository.GetMap().GetStepsFromCenter(*field.GetArea());
  return {field.GetFx() + kAreaEdge * areas.x, field.GetFy() + kAreaEdge * areas.y};
}

std::int32_t WorldPainter::GetBlitOffsetX() const {
  return Guard(kModule, "GetBlitOffsetX", [&] {
    const ClientCharacter& player = mRepository.GetPlayer();
    if (player.GetField() == nullptr) return 0;
    const Step place = GetFieldsFromCenter(*player.GetField());
    return kToMiddleX - kTileWidth / 2 * (place.x + place.y) - player.GetOffsetX();
  });
}

std::int32_t WorldPainter::GetBlitOffsetY() const {
  return Guard(kModule, "GetBlitOffsetY", [&] {
    const ClientCharacter& player = mRepository.GetPlayer();
    if (player.GetField() == nullptr) return 0;
    const Step place = GetFieldsFromCenter(*player.GetField());
    return kToMiddleY - kTileHeight / 2 * (place.x - place.y) - player.GetOffsetY();
  });
}

void WorldPainter::BlitObjects() {
  Guard(kModule, "BlitObjects", [&] {
    const ClientCharacter& player = mRepository.GetPlayer();
    if (player.GetField() == nullptr) return;
    const int rows = mWindow.h / kTilePictureHeight;
    const int stepsWest = (mWindow.w / kTileWidth + 2) / 2;
    const int stepsNorth = (rows + 2) / 2 + kRowsAbove;
    const int left = mWindow.w / 2 - kTileWidth / 2 - player.GetOffsetX() - kTileWidth * stepsWest;
    const int top = mWindow.h / 2 - kTileHeight / 2 - player.GetOffsetY() - kTileHeight * stepsNorth;

    mPlacedLabels.clear();
    const Field* first = Walk(Walk(player.GetField(), Direction::West, stepsWest), Direction::North, stepsNorth);
    for (int row = 0; row < rows + kExtraRows + kRowsAbove; ++row) {
      BlitRow(first, left, top + kTileHeight * row);
      first = Next(first, Direction::South);
    }
    // Last, so that nothing hides what is said.
    for (const PlacedLabel& label : mPlacedLabels) {
      label.box.SetX(label.x);
      label.box.SetY(label.y);
      label.box.Blit(&mWindow);
    }
    mMessages.Forget();
    mNames.Forget();
  });
}

void WorldPainter::BlitRow(const Field* first, int x, int y) {
  const Field* upper = first;
  const Field* lower = Next(first, Direction::SouthWest);
  for (int column = 0; column < mWindow.w / kTileWidth + kExtraColumns; ++column) {
    BlitField(upper, x, y);
    BlitField(lower, x - kTileWidth / 2, y + kTileHeight / 2);
    x += kTileWidth;
    upper = Next(upper, Direction::East);
    lower = Next(lower, Direction::East);
  }
}

void WorldPainter::BlitField(const Field* field, int x, int y) {
  if (field == nullptr) return;
  if (field->GetVoluId() != 0) mGraphics.FindSprite(field->GetVoluId()).CopyWhole(mWindow, x, y - kVoluRise);
  if (ClientCharacter* character = ClientCharacter::On(*field)) BlitCharacter(*character, x, y);
}

void WorldPainter::BlitCharacter(ClientCharacter& character, int x, int y) {
  // The player's own has moved already, with the view.
  if (&character != &mRepository.GetPlayer()) character.Animate();
  const int left = x + character.GetOffsetX();
  const int top = y + character.GetOffsetY() - kSpriteRise;
  const int direction = static_cast<int>(character.GetDirection());
  const Rect part{kSpriteWidth * character.GetFrame(), kSpriteHeight * direction, kSpriteWidth, kSpriteHeight};
  mGraphics.FindSprite(kPictureCharacters).CopyPart(part, mWindow, left, top);

  if (character.GetChatMessage()[0] == '\0') return;
  if (GetTicks() - character.GetMessageTick() > kMessageMs) return character.SetChatMessage("");
  // Of a character above the window only the name would show, at the upper edge.
  if (top + kSpriteHeight <= 0) return;
  AddLabel(mMessages.Get(character.GetChatMessage()), left, top);
  AddLabel(mNames.Get(character.GetName()), left, top + kSpriteHeight);
}

void WorldPainter::AddLabel(TextBox& box, int spriteX, int y) {
  mPlacedLabels.push_back({box, Narrow(spriteX - (box.GetTextWidth() - kSpriteWidth) / 2), Narrow(y)});
}

}  // namespace tolva
