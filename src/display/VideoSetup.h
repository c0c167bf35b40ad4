#pragma once

#include <string>

#include <SDL.h>

#include "display/DisplaySize.h"
#include "foundation/InfoHandler.h"
#include "media/Archive.h"

namespace tolva {

// Opens the client's window. Display thread only. Errors and log lines name the display, which it works for.
class VideoSetup {
 public:
  // All three stay the caller's and must outlive this object. `step` always names what is being done, as the end of
  // "could not ...", for a message to the player.
  VideoSetup(Archive& archive, InfoHandler& infoHandler, std::string& step);

  // Starts the video system and the font library, logs what the system can do, and sets caption, icon and video mode.
  // Returns the video surface, which is SDL's own, or null after a failure, which is logged.
  SDL_Surface* Open(const DisplaySize& size);

 private:
  bool StartVideo();
  bool StartFonts();
  void GetVideoInfo();
  void SetCaptionAndIcon();
  SDL_Surface* SetVideoMode(const DisplaySize& size);
  void Log(InfoLevel level, const char* text);

  Archive& mArchive;
  InfoHandler& mInfoHandler;
  std::string& mStep;
};

}  // namespace tolva
