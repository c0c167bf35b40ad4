#include "plain/WorldPainter.h"

#include <utility>

#include "display/FieldTiles.h"
#include "display/MessageHistory.h"
#include "display/PictureIds.h"
#include "display/TextBox.h"
#include "media/Archive.h"
#include "plain/Copy.h"
#include "sdl/Text.h"

namespace tolva::plain {
namespace {

constexpr int kSpriteHeight = 114;
constexpr int kSpriteRise = kSpriteHeight - kTilePictureHeight;
constexpr int kVoluRise = 228 - kTilePictureHeight;

// Gives away the font of the text boxes.
class FontSource : public TextBox {
 public:
  using TextBox::GetFont;
};

const Field* Walk(const Field* field, Direction direction, int steps) {
  for (int step = 0; step < steps; ++step) field = Next(field, direction);
  return field;
}

}  // namespace

WorldPainter::WorldPainter(SDL_Surface& window, GameGraphics& graphics, Repository& repository)
    : mWindow(window), mGraphics(graphics), mRepository(repository) {}

void WorldPainter::BlitObjects() {
  const ClientCharacter& player = mRepository.GetPlayer();
  const int rows = mWindow.h / kTilePictureHeight;
  const int stepsWest = (mWindow.w / kTileWidth + 2) / 2;
  const int stepsNorth = (rows + 2) / 2 + 2;
  const int left = mWindow.w / 2 - kTileWidth / 2 - player.GetOffsetX() - kTileWidth * stepsWest;
  const int top = mWindow.h / 2 - kTileHeight / 2 - player.GetOffsetY() - kTileHeight * stepsNorth;

  Labels labels;
  const Field* first = Walk(Walk(player.GetField(), Direction::West, stepsWest), Direction::North, stepsNorth);
  for (int row = 0; row < rows + 9; ++row, first = Next(first, Direction::South)) {
    const Field* upper = first;
    const Field* lower = Next(first, Direction::SouthWest);
    for (int column = 0; column < mWindow.w / kTileWidth + 4; ++column) {
      BlitField(upper, left + kTileWidth * column, top + kTileHeight * row, labels);
      BlitField(lower, left + kTileWidth * column - kTileWidth / 2, top + kTileHeight * row + kTileHeight / 2, labels);
      upper = Next(upper, Direction::East);
      lower = Next(lower, Direction::East);
    }
  }
  for (const Label& label : labels) plain::CopyPart(label.picture.get(), {0, 0, 800, 20}, &mWindow, label.x, label.y);
}

void WorldPainter::BlitField(const Field* field, int x, int y, Labels& labels) {
  if (field == nullptr) return;
  if (field->GetVoluId() != 0) CopyWhole(mGraphics.FindGraphic(field->GetVoluId()), &mWindow, x, y - kVoluRise);
  if (ClientCharacter* character = ClientCharacter::On(*field)) BlitCharacter(*character, x, y, labels);
}

void WorldPainter::BlitCharacter(ClientCharacter& character, int x, int y, Labels& labels) {
  if (&character != &mRepository.GetPlayer()) character.Animate();
  const int left = x + character.GetOffsetX();
  const int top = y + character.GetOffsetY() - kSpriteRise;
  const int direction = static_cast<int>(character.GetDirection());
  const Rect part{kTileWidth * character.GetFrame(), kSpriteHeight * direction, kTileWidth, kSpriteHeight};
  plain::CopyPart(mGraphics.FindGraphic(kPictureCharacters), part, &mWindow, left, top);
  if (character.GetChatMessage()[0] == '\0' || top + kSpriteHeight <= 0) return;
  AddLabel(character.GetChatMessage(), kWhite, left, top, labels);
  AddLabel(character.GetName(), kNameColor, left, top + kSpriteHeight, labels);
}

void WorldPainter::AddLabel(const char* text, Rgb color, int spriteX, int y, Labels& labels) {
  const Archive archive("Graphics", &mLog);  // each label had its own
  SurfacePtr picture = RenderText(FontSource::GetFont(), text, color);
  const int x = spriteX - (picture->w - kTileWidth) / 2;
  labels.push_back({std::move(picture), x, y});
}

}  // namespace tolva::plain
