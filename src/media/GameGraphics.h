#pragma once

#include <cstdint>
#include <map>

#include "sdl/SurfacePtr.h"

namespace tolva {

class Archive;

// The pictures that the game view draws, by the ids that stand in ground, volu and characters. A picture is loaded when
// it is first asked for and kept until the store is emptied. What is handed out is already as dark as the world is;
// darkness costs nothing per frame. Needs a video mode. Display thread only.
class GameGraphics {
 public:
  // `archive` stays the caller's and must outlive the store.
  explicit GameGraphics(Archive* archive);
  virtual ~GameGraphics();

  GameGraphics(const GameGraphics&) = delete;
  GameGraphics& operator=(const GameGraphics&) = delete;

  // The picture in the display's format at the current darkness. Null for id 0 and when the archive cannot give it;
  // each call then tries, and the archive logs, again. The surface is the store's: valid until the store is emptied,
  // and drawn anew by SetDarkness.
  SDL_Surface* GetGraphic(std::uint32_t id);
  // Laid over a darkened copy of the picture, it restores the pixels that must stay see-through. Same size, owner and
  // failure as GetGraphic, but knows no exception for id 0.
  SDL_Surface* GetMask(std::uint32_t id);

  // The same two for code that draws: a picture that was not there is not looked for again in this run, by any store,
  // so that an unknown id, of which a server can send any number, costs neither the frame rate nor the log. When 65,536
  // such ids are known, only pictures that have been found in this run are looked for.
  SDL_Surface* FindGraphic(std::uint32_t id);
  SDL_Surface* FindMask(std::uint32_t id);
  // A new run begins: every picture may be there again.
  static void ForgetMissing();

  // From 0 (full daylight) to 255 (black). Draws every loaded picture anew.
  void SetDarkness(std::uint8_t darkness);
  std::uint8_t GetDarkness() const { return mDarkness; }

  // Loads the picture, over one that is there. False when the archive cannot give it. Throws an Error when SDL has no
  // room for its surfaces.
  bool LoadGraphic(std::uint32_t id);
  void UnloadGraphics();

 private:
  struct GraphicEntry {
    SurfacePtr source;
    SurfacePtr mask;
    SurfacePtr darkened;
  };

  GraphicEntry* FindEntry(std::uint32_t id);
  static bool MayBeThere(std::uint32_t id);
  void Darken(GraphicEntry& entry) const;

  Archive* const mArchive;
  std::map<std::uint32_t, GraphicEntry> mGraphics;
  std::uint8_t mDarkness = 0;
};

}  // namespace tolva
