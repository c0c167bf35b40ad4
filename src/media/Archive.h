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

  // The picture `id` in the display's format, which needs a video mode. Null when it cannot be loaded; a log line says
  // why.
  SurfacePtr LoadImage(std::uint32_t id);

  // The picture `id` as its file holds it, without conversion: for the window icon, which must be set before there is a
  // video mode. Fails as LoadImage does.
  SurfacePtr DecodeImage(std::uint32_t id);

  // Copies entry `id` into the file `path`, replacing its content: for libraries that load from files only. False when
  // there is no such entry, it does not lie inside the data file, or the target cannot be written; the target then
  // stays as it was.
  bool Extract(std::uint32_t id, const char* path);

 private:
  SurfacePtr Decode(std::uint32_t id);
  void LogFailure(ArchiveFault fault);

  ArchiveReader mReader;
  InfoHandler* const mInfoHandler;
};

}  // namespace tolva
