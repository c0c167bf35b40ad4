#pragma once

#include <cstdint>

#include "archive/ArchiveReader.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

class InfoHandler;

// An archive of pictures, the font or music: the index `<base name>.cci` and the data file `<base name>.cca`. No file
// stays open, and each operation reads the index again, so a new pair of files counts from the next call on. Contents
// are checked before use: a damaged file costs a picture, never more. For the thread that built it.
class Archive {
 public:
  // `baseName` is a path without its suffix, at most 251 characters (longer ones are cut). Opens nothing yet.
  // `infoHandler` takes the load failures; it belongs to the caller and must outlive the archive.
  Archive(const char* baseName, InfoHandler* infoHandler);
  virtual ~Archive() = default;

  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  // Reads the index. An absent or empty file gives an empty index. False when the file exists but cannot be read: the
  // index then stays as it was.
  bool ReadIndex();

  // The picture `id` in the display's format, which needs a video mode; the caller frees it with SDL_FreeSurface (or
  // puts it into a SurfacePtr at once). Null, with a log line that says why, when there is no such picture.
  SDL_Surface* LoadImage(std::uint32_t id);

  // The same picture as the file holds it, without conversion: for the window icon, which is set before the display has
  // a format.
  SDL_Surface* DecodeImage(std::uint32_t id);

  // Copies entry `id` into the file `path`, replacing its content: for libraries that load from files only. False, with
  // the target left alone, when there is no such entry, it does not lie inside the data file, or it cannot be written.
  bool Extract(std::uint32_t id, const char* path);

 private:
  SurfacePtr Decode(std::uint32_t id);
  void LogFailure(ArchiveFault fault);

  ArchiveReader mReader;
  InfoHandler* const mInfoHandler;
};

}  // namespace tolva
