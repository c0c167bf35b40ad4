#include "display/TileBlend.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <type_traits>

#include "world/TileSize.h"

namespace tolva::tile_blend {
namespace {

struct Line {
  int x1, y1, x2, y2;
};

// The corners of a tile's diamond.
constexpr int kMiddleX = kTileWidth / 2;
constexpr int kMiddleY = kTileHeight / 2;
constexpr int kRight = kTileWidth - 1;
constexpr int kBottom = kTileHeight;

// An edge is blended in pairs of lines. The first pair is the edge and its copy 2 pixels further in x; each further
// pair lies 2 pixels in x and 1 in y more inward.
struct Edge {
  Direction direction;
  Line line;
  int inwardX;
  int inwardY;
  int firstStep;  // by how many steps the tile's share starts above half
};

constexpr Edge kEdges[] = {{Direction::NorthEast, {kMiddleX, 0, kRight, kMiddleY}, -2, 1, 1},
                           {Direction::SouthEast, {kRight, kMiddleY, kMiddleX, kBottom}, -2, -1, 0},
                           {Direction::SouthWest, {0, kMiddleY, kMiddleX - 1, kBottom}, 2, -1, 0},
                           {Direction::NorthWest, {0, kMiddleY, kMiddleX - 1, 0}, 2, 1, 1}};

Line MoveBy(const Line& line, int x, int y) { return {line.x1 + x, line.y1 + y, line.x2 + x, line.y2 + y}; }

constexpr int kHalf = 127;  // the tile's share at the edge, of 256

// `own` is the tile's share, of 256.
constexpr std::uint8_t Mix(std::uint32_t tile, std::uint32_t picture, std::uint32_t own) {
  return static_cast<std::uint8_t>((tile * own + picture * (256 - own)) / 256);
}

// One color channel of pixels without a palette.
struct Channel {
  Uint32 mask;
  Uint8 shift;
  Uint8 loss;

  constexpr std::uint32_t Widen(Uint32 pixel) const {
    const Uint32 value = (pixel & mask) >> shift;
    // Repeats the upper bits below, so that the brightest value becomes 255.
    const Uint32 filling = loss > 4 ? 0 : value >> (8 - 2 * loss);
    return ((value << loss) + (loss == 0 ? 0 : filling)) & 0xFF;
  }
  constexpr Uint32 MixPixels(Uint32 tile, Uint32 picture, std::uint32_t own) const {
    return static_cast<Uint32>(Mix(Widen(tile), Widen(picture), own) >> loss) << shift & mask;
  }
};

class ColorMixer {
 public:
  ColorMixer(const SDL_PixelFormat& format, const SDL_PixelFormat&)
      : mRed{format.Rmask, format.Rshift, format.Rloss},
        mGreen{format.Gmask, format.Gshift, format.Gloss},
        mBlue{format.Bmask, format.Bshift, format.Bloss},
        mAlpha(format.Amask) {}

  Uint32 operator()(Uint32 tile, Uint32 picture, std::uint32_t own) const {
    return mRed.MixPixels(tile, picture, own) | mGreen.MixPixels(tile, picture, own) |
           mBlue.MixPixels(tile, picture, own) | mAlpha;
  }

 private:
  Channel mRed, mGreen, mBlue;
  Uint32 mAlpha;
};

// The client's usual format. Constant shifts make it more than twice as fast.
class Mixer565 {
 public:
  Mixer565(const SDL_PixelFormat&, const SDL_PixelFormat&) {}

  Uint32 operator()(Uint32 tile, Uint32 picture, std::uint32_t own) const {
    return kRed.MixPixels(tile, picture, own) | kGreen.MixPixels(tile, picture, own) |
           kBlue.MixPixels(tile, picture, own);
  }
  static bool Knows(const SDL_PixelFormat& format) {
    return format.Rmask == kRed.mask && format.Gmask == kGreen.mask && format.Bmask == kBlue.mask && format.Amask == 0;
  }

 private:
  static constexpr Channel kRed{0xF800, 11, 3};
  static constexpr Channel kGreen{0x07E0, 5, 2};
  static constexpr Channel kBlue{0x001F, 0, 3};
};

// Pixels that are indexes into a palette, of which each surface has its own.
class PaletteMixer {
 public:
  PaletteMixer(const SDL_PixelFormat& tile, const SDL_PixelFormat& picture) : mTile(tile), mPicture(picture) {}

  Uint32 operator()(Uint32 tile, Uint32 picture, std::uint32_t own) const {
    const SDL_Color from = ColorOf(mTile, tile);
    const SDL_Color to = ColorOf(mPicture, picture);
    return SDL_MapRGB(&mTile, Mix(from.r, to.r, own), Mix(from.g, to.g, own), Mix(from.b, to.b, own));
  }

 private:
  static SDL_Color ColorOf(const SDL_PixelFormat& format, Uint32 pixel) {
    const SDL_Palette& palette = *format.palette;
    return pixel < static_cast<Uint32>(palette.ncolors) ? palette.colors[pixel] : SDL_Color{};
  }

  const SDL_PixelFormat& mTile;
  const SDL_PixelFormat& mPicture;
};

template <int Bytes>
Uint32 Load(const Uint8* from) {
  if constexpr (Bytes == 3) {
    return SDL_BYTEORDER == SDL_LIL_ENDIAN ? from[0] | from[1] << 8 | from[2] << 16
                                           : from[2] | from[1] << 8 | from[0] << 16;
  } else {
    std::conditional_t<Bytes == 1, Uint8, std::conditional_t<Bytes == 2, Uint16, Uint32>> pixel;
    std::memcpy(&pixel, from, Bytes);
    return pixel;
  }
}

template <int Bytes>
void Store(Uint8* to, Uint32 pixel) {
  if constexpr (Bytes == 3) {
    constexpr bool kLittle = SDL_BYTEORDER == SDL_LIL_ENDIAN;
    to[kLittle ? 0 : 2] = static_cast<Uint8>(pixel);
    to[1] = static_cast<Uint8>(pixel >> 8);
    to[kLittle ? 2 : 0] = static_cast<Uint8>(pixel >> 16);
  } else {
    const auto narrow =
        static_cast<std::conditional_t<Bytes == 1, Uint8, std::conditional_t<Bytes == 2, Uint16, Uint32>>>(pixel);
    std::memcpy(to, &narrow, Bytes);
  }
}

template <int Bytes, typename Mixer>
void BlendLine(SDL_Surface& tile, const SDL_Surface& picture, const Mixer& mixer, const Line& line, std::uint8_t own) {
  const int xStep = line.x1 <= line.x2 ? 1 : -1;
  const int yStep = line.y1 <= line.y2 ? 1 : -1;
  const int length = std::abs(line.x2 - line.x1) + 1;
  const int rise = std::abs(line.y2 - line.y1) + 1;
  const auto isInside = [&](int x, int y) { return x >= 0 && x < tile.w && y >= 0 && y < tile.h; };
  const bool isAllInside = isInside(line.x1, line.y1) && isInside(line.x2, line.y2);
  int error = 0;
  int y = line.y1;
  for (int i = 0, x = line.x1; i < length; ++i, x += xStep) {
    if (isAllInside || isInside(x, y)) {
      const std::ptrdiff_t at = std::ptrdiff_t{y} * tile.pitch + std::ptrdiff_t{x} * Bytes;
      Uint8* to = static_cast<Uint8*>(tile.pixels) + at;
      const Uint8* from = static_cast<const Uint8*>(picture.pixels) + at;
      Store<Bytes>(to, mixer(Load<Bytes>(to), Load<Bytes>(from), own));
    }
    // After drawing the pixel, or the line would miss its end.
    error += rise;
    if (error >= length) {
      error -= length;
      y += yStep;
    }
  }
}

template <int Bytes, typename Mixer>
void BlendLines(SDL_Surface& tile, const SDL_Surface& picture, const Edge& edge, std::uint8_t width) {
  const Mixer mixer(*tile.format, *picture.format);
  const int step = kHalf / width;
  // Wraps at 8 bits.
  auto own = static_cast<std::uint8_t>(kHalf + edge.firstStep * step);
  for (int i = 0; i < width / 2; ++i) {
    // The line of the edge, then its copy further in.
    for (const int copy : {0, 1}) {
      const Line line = MoveBy(edge.line, edge.inwardX * (i + copy), edge.inwardY * i);
      BlendLine<Bytes>(tile, picture, mixer, line, own);
      own = static_cast<std::uint8_t>(own + step);
    }
  }
}

}  // namespace

bool HaveSameShape(const SDL_Surface& tile, const SDL_Surface& picture) {
  const SDL_PixelFormat& a = *tile.format;
  const SDL_PixelFormat& b = *picture.format;
  return tile.w == picture.w && tile.h == picture.h && tile.pitch == picture.pitch &&
         a.BytesPerPixel == b.BytesPerPixel && a.Rmask == b.Rmask && a.Gmask == b.Gmask && a.Bmask == b.Bmask &&
         a.Amask == b.Amask;
}

void BlendEdge(SDL_Surface& tile, const SDL_Surface& picture, Direction direction, std::uint8_t width) {
  if (width == 0) return;
  for (const Edge& edge : kEdges) {
    if (edge.direction != direction) continue;
    switch (tile.format->BytesPerPixel) {
      case 1:
        return BlendLines<1, PaletteMixer>(tile, picture, edge, width);
      case 2:
        return Mixer565::Knows(*tile.format) ? BlendLines<2, Mixer565>(tile, picture, edge, width)
                                             : BlendLines<2, ColorMixer>(tile, picture, edge, width);
      case 3:
        return BlendLines<3, ColorMixer>(tile, picture, edge, width);
      case 4:
        return BlendLines<4, ColorMixer>(tile, picture, edge, width);
      default:
        return;
    }
  }
}

}  // namespace tolva::tile_blend
