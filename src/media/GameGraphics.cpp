#include "media/GameGraphics.h"

#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <unordered_set>
#include <utility>

#include "foundation/Guard.h"
#include "media/Archive.h"
#include "sdl/Copy.h"
#include "sdl/Surface.h"

namespace tolva {
namespace {

constexpr char kModule[] = "GameGraphics";

constexpr std::size_t kMaxMissing = 65'536;

// The ids that the archive does not have, and those that it has. Static because each visit to the world has a store of
// its own, while the archive stays the same.
std::unordered_set<std::uint32_t> sMissing;
std::unordered_set<std::uint32_t> sFound;

void Remember(std::uint32_t id, bool isFound) { (isFound ? sFound : sMissing).insert(id); }

// The pictures of a sheet stand in columns of this width, in pixels.
constexpr int kSheetColumn = 76;

const Sprite kNoSprite;

// Converting a picture to a 16-bit format in which all channels share these bits, and back, gives its mask.
constexpr Uint32 kMaskChannel = 0x000000FF;

// The guard of the operation that needs the surface turns the exception into its Error.
SurfacePtr Require(SurfacePtr surface) {
  if (surface == nullptr) throw std::runtime_error(SDL_GetError());
  return surface;
}

SurfacePtr Copy(const SurfacePtr& surface) { return Require(CopyForDisplay(*surface)); }

void LayOver(const SurfacePtr& from, const SurfacePtr& to) { CopyWhole(from.get(), to.get(), 0, 0); }

bool IsSeeThrough(const SDL_Surface& surface, int x, int y) {
  const int bytes = surface.format->BytesPerPixel;
  Uint32 pixel = 0;
  std::memcpy(&pixel,
              static_cast<const Uint8*>(surface.pixels) + std::ptrdiff_t{y} * surface.pitch + std::ptrdiff_t{x} * bytes,
              bytes);
  if constexpr (SDL_BYTEORDER == SDL_BIG_ENDIAN) pixel >>= 8 * (4 - bytes);
  return pixel == surface.format->colorkey;
}

// White where the picture is opaque, black where it is see-through, pixel by pixel.
SurfacePtr PaintOpaquePartsWhite(const SurfacePtr& source) {
  SurfacePtr painted = Copy(source);
  SDL_SetColorKey(painted.get(), 0, 0);
  Fill(*painted, kWhite);
  if ((source->flags & SDL_SRCCOLORKEY) == 0) return painted;
  for (int y = 0; y < source->h; ++y) {
    for (int x = 0; x < source->w; ++x) {
      if (!IsSeeThrough(*source, x, y)) continue;
      FillPart(*painted, {x, y, 1, 1}, kBlack);
    }
  }
  return painted;
}

// The same by two conversions: opaque pixels get full alpha, which shares its bits with the colors, so they turn white.
SurfacePtr FoldIntoOneChannel(const SurfacePtr& source) {
  const SurfacePtr folded = Require(SurfacePtr(SDL_CreateRGBSurface(
      SDL_SWSURFACE, source->w, source->h, 16, kMaskChannel, kMaskChannel, kMaskChannel, kMaskChannel)));
  // The compatibility library makes an ordinary surface instead, with which black parts would become holes and others
  // stay bright at night.
  if (folded->format->Rmask != kMaskChannel) return PaintOpaquePartsWhite(source);
  LayOver(source, folded);
  return Copy(folded);
}

SurfacePtr MakeMask(const SurfacePtr& source) {
  const SurfacePtr working = FoldIntoOneChannel(source);
  SetColorKey(*working, kBlack);

  SurfacePtr mask = Copy(source);
  SDL_SetColorKey(mask.get(), 0, 0);
  Fill(*mask, kTransparentColor);
  LayOver(working, mask);
  SetColorKey(*mask, kWhite);
  return mask;
}

}  // namespace

GameGraphics::GameGraphics(Archive* archive) : mArchive(archive) {}

GameGraphics::~GameGraphics() = default;

SDL_Surface* GameGraphics::GetGraphic(std::uint32_t id) {
  return Guard(kModule, "GetGraphic", [&]() -> SDL_Surface* { return id == 0 ? nullptr : GetSprite(id).GetSurface(); });
}

SDL_Surface* GameGraphics::GetMask(std::uint32_t id) {
  return Guard(kModule, "GetMask", [&]() -> SDL_Surface* {
    GraphicEntry* entry = FindEntry(id);
    return entry == nullptr ? nullptr : MaskOf(*entry);
  });
}

SDL_Surface* GameGraphics::FindGraphic(std::uint32_t id) { return FindSprite(id).GetSurface(); }

const Sprite& GameGraphics::FindSprite(std::uint32_t id) {
  return Guard(kModule, "FindGraphic", [&]() -> const Sprite& {
    if (id == 0 || !MayBeThere(id)) return kNoSprite;
    const Sprite& sprite = GetSprite(id);
    Remember(id, sprite.GetSurface() != nullptr);
    return sprite;
  });
}

SDL_Surface* GameGraphics::FindMask(std::uint32_t id) {
  return Guard(kModule, "FindMask", [&]() -> SDL_Surface* {
    if (!MayBeThere(id)) return nullptr;
    SDL_Surface* mask = GetMask(id);
    Remember(id, mask != nullptr);
    return mask;
  });
}

bool GameGraphics::IsKnown(std::uint32_t id) const { return mGraphics.contains(id) || !MayBeThere(id); }

void GameGraphics::SetDarkness(std::uint8_t darkness) {
  mDarkness = darkness;
  mNextToDarken = 0;
}

bool GameGraphics::DarkenNext() {
  return Guard(kModule, "DarkenNext", [&] {
    for (auto each = mGraphics.lower_bound(mNextToDarken); each != mGraphics.end(); ++each) {
      mNextToDarken = each->first;
      if (each->second.darkness == mDarkness) continue;
      Darken(each->second);
      return true;
    }
    return false;
  });
}

bool GameGraphics::LoadGraphic(std::uint32_t id) {
  return Guard(kModule, "LoadGraphic", [&] {
    const SurfacePtr loaded = mArchive->LoadImage(id);
    if (loaded == nullptr) return false;
    GraphicEntry entry;
    entry.source = Copy(loaded);
    // The source is see-through where the darkened picture is.
    entry.darkened = Sprite(Copy(entry.source), kSheetColumn);
    if (mDarkness != 0) Darken(entry);
    mGraphics.insert_or_assign(id, std::move(entry));
    return true;
  });
}

void GameGraphics::UnloadGraphics() {
  Guard(kModule, "UnloadGraphics", [&] { mGraphics.clear(); });
}

GameGraphics::GraphicEntry* GameGraphics::FindEntry(std::uint32_t id) {
  auto found = mGraphics.find(id);
  if (found == mGraphics.end() && LoadGraphic(id)) found = mGraphics.find(id);
  return found == mGraphics.end() ? nullptr : &found->second;
}

const Sprite& GameGraphics::GetSprite(std::uint32_t id) {
  GraphicEntry* entry = FindEntry(id);
  if (entry == nullptr) return kNoSprite;
  if (entry->darkness != mDarkness) Darken(*entry);
  return entry->darkened;
}

void GameGraphics::ForgetMissing() {
  sMissing.clear();
  sFound.clear();
}

bool GameGraphics::MayBeThere(std::uint32_t id) {
  return sFound.contains(id) || (sMissing.size() < kMaxMissing && !sMissing.contains(id));
}

SDL_Surface* GameGraphics::MaskOf(GraphicEntry& entry) {
  if (entry.mask == nullptr) entry.mask = MakeMask(entry.source);
  return entry.mask.get();
}

void GameGraphics::Darken(GraphicEntry& entry) {
  SDL_Surface& darkened = *entry.darkened.GetSurface();
  if (mDarkness == 0) {
    CopyWhole(entry.source.get(), &darkened, 0, 0);
  } else if (DarknessTable::Serves(*entry.source)) {
    mTable.Darken(*entry.source, darkened, mDarkness);
  } else {
    LayVeil(entry, darkened);
  }
  entry.darkness = mDarkness;
}

// The veil is black everywhere, so it darkens the pixels of the color key too, which would then be drawn. The mask
// restores them: it has the key's color where the picture is see-through, and is see-through elsewhere.
void GameGraphics::LayVeil(GraphicEntry& entry, SDL_Surface& target) {
  CopyWhole(entry.source.get(), &target, 0, 0);
  const SurfacePtr veil = Copy(entry.source);
  SDL_FillRect(veil.get(), nullptr, 0);
  SDL_SetAlpha(veil.get(), SDL_SRCALPHA, mDarkness);
  CopyWhole(veil.get(), &target, 0, 0);
  CopyWhole(MaskOf(entry), &target, 0, 0);
}

}  // namespace tolva
