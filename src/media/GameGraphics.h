#pragma once

#include <cstdint>
#include <map>

#include "media/DarknessTable.h"
#include "sdl/Sprite.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

class Archive;

// A store of the game view's pictures, by graphic id. Loads a picture when it is first requested and keeps it until
// the store is emptied. Pictures are already darkened to the world's darkness, so it costs nothing per frame: each is
// darkened when it is next requested, since a step of the light would else redraw hundreds of pictures in one frame.
// Needs a video mode. Display thread only.
class GameGraphics {
 public:
  // Borrows `archive`, which must outlive the store.
  explicit GameGraphics(Archive* archive);
  virtual ~GameGraphics();

  GameGraphics(const GameGraphics&) = delete;
  GameGraphics& operator=(const GameGraphics&) = delete;

  // The picture in the display's format at the current darkness. The store owns the surface, which is valid until the
  // store is emptied; the next request after SetDarkness redraws it. Null for id 0 and for a picture that the archive
  // cannot load; each call then tries again, and the archive logs again.
  SDL_Surface* GetGraphic(std::uint32_t id);
  // The picture that restores, copied over the darkened picture, the pixels that must stay see-through. As GetGraphic
  // otherwise, but without the rule for id 0.
  SDL_Surface* GetMask(std::uint32_t id);

  // The same two for code that draws, with a cache of missing pictures: no store tries one again in this run. So
  // unknown ids, of which a server can send any number, cost neither frame rate nor log lines. Once 65,536 ids are
  // known to be missing, only pictures that were found before are tried.
  SDL_Surface* FindGraphic(std::uint32_t id);
  SDL_Surface* FindMask(std::uint32_t id);
  // What FindGraphic gives, prepared for copying; never null, but can have no picture.
  const Sprite& FindSprite(std::uint32_t id);
  // Whether the picture is loaded, or known to be missing.
  bool IsKnown(std::uint32_t id) const;
  // Empties that cache, as if a new run began.
  static void ForgetMissing();

  // From 0 (full daylight) to 255 (black).
  void SetDarkness(std::uint8_t darkness);
  std::uint8_t GetDarkness() const { return mDarkness; }
  // Darkens one picture that nobody has requested since the darkness changed. False when there is none left.
  bool DarkenNext();

  // Loads the picture, replacing one that is loaded. False when the archive cannot load it. Throws an Error when SDL
  // cannot make its surfaces.
  bool LoadGraphic(std::uint32_t id);
  void UnloadGraphics();

 private:
  struct GraphicEntry {
    SurfacePtr source;
    SurfacePtr mask;  // null until it is needed
    Sprite darkened;
    std::uint8_t darkness = 0;  // of `darkened`
  };

  GraphicEntry* FindEntry(std::uint32_t id);
  static bool MayBeThere(std::uint32_t id);
  const Sprite& GetSprite(std::uint32_t id);
  static SDL_Surface* MaskOf(GraphicEntry& entry);
  void Darken(GraphicEntry& entry);
  void LayVeil(GraphicEntry& entry, SDL_Surface& target);

  Archive* const mArchive;
  std::map<std::uint32_t, GraphicEntry> mGraphics;
  DarknessTable mTable;
  std::uint8_t mDarkness = 0;
  std::uint32_t mNextToDarken = 0;  // the id from which on DarkenNext searches
};

}  // namespace tolva
