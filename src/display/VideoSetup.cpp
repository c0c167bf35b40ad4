#include "display/VideoSetup.h"

#include <cstring>

#include <SDL_ttf.h>

#include "display/FormattedText.h"
#include "display/PictureIds.h"
#include "foundation/Guard.h"
#include "protocol/VersionNumbers.h"
#include "sdl/SurfacePtr.h"

namespace tolva {
namespace {

constexpr int kBitsPerPixel = 16;
constexpr int kMaxDriverName = 127;

// Without an X server SDL may pick a driver that draws with letters on the terminal. Nobody can play that.
bool IsTextDriver(const char* driver) { return std::strcmp(driver, "aalib") == 0 || std::strcmp(driver, "caca") == 0; }

// A line of the log about something that the video system can or cannot do.
struct Ability {
  bool isThere;
  const char* what;
  const char* yes = "accelerated";
  const char* no = "NOT accelerated";
};

}  // namespace

VideoSetup::VideoSetup(Archive& archive, InfoHandler& infoHandler, std::string& step)
    : mArchive(archive), mInfoHandler(infoHandler), mStep(step) {}

SDL_Surface* VideoSetup::Open(const DisplaySize& size) {
  if (!StartVideo() || !StartFonts()) return nullptr;
  GetVideoInfo();
  // SDL takes an icon only before the video mode is set.
  SetCaptionAndIcon();
  return SetVideoMode(size);
}

bool VideoSetup::StartVideo() {
  mStep = "start the video system (check that DISPLAY is set and its X server runs)";
  bool isUsable = SDL_InitSubSystem(SDL_INIT_VIDEO) != -1;
  char driver[kMaxDriverName + 1] = "";
  if (isUsable && SDL_VideoDriverName(driver, sizeof driver) != nullptr && IsTextDriver(driver)) {
    // Gives the terminal back before anything is written to it.
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    mStep = FormattedText("show a window through the video driver \"%s\" (set DISPLAY to an X server)", driver);
    isUsable = false;
  }
  if (!isUsable) Log(InfoLevel::Failure, "Init Video Subsystem failed");
  return isUsable;
}

bool VideoSetup::StartFonts() {
  mStep = "start the font library";
  if (TTF_Init() >= 0) return true;
  Log(InfoLevel::Failure, "Init TTF failed");
  return false;
}

void VideoSetup::GetVideoInfo() {
  Guard("Display", "GetVideoInfo", [&] {
    char driver[kMaxDriverName + 1] = "";
    SDL_VideoDriverName(driver, sizeof driver);
    Log(InfoLevel::Progress, FormattedText("VideoDriver: %s", driver));

    const SDL_VideoInfo* info = SDL_GetVideoInfo();
    if (info == nullptr) return;
    const Ability abilities[] = {{info->hw_available != 0, "Hardware surfaces", "possible", "NOT possible"},
                                 {info->wm_available != 0, "Window manager", "available", "NOT available"},
                                 {info->blit_hw != 0, "Hardware to hardware blits"},
                                 {info->blit_hw_CC != 0, "Hardware to hardware colerkey blits"},
                                 {info->blit_hw_A != 0, "Hardware to hardware alpha blits"},
                                 {info->blit_sw != 0, "Software to hardware blits"},
                                 {info->blit_sw_CC != 0, "Software to hardware colerkey blits"},
                                 {info->blit_sw_A != 0, "Software to hardware alpha blits"},
                                 {info->blit_fill != 0, "Color fills"}};
    for (const Ability& ability : abilities) {
      const char* answer = ability.isThere ? ability.yes : ability.no;
      Log(InfoLevel::Progress, FormattedText("%s %s", ability.what, answer));
    }
    Log(InfoLevel::Progress, FormattedText("Total amount of video memory: %u Kb", info->video_mem));
    Log(InfoLevel::Progress, FormattedText("Best video mode: %d bits per pixel", info->vfmt->BitsPerPixel));
  });
}

void VideoSetup::SetCaptionAndIcon() {
  SDL_WM_SetCaption(("Tolva - Version " + ToText(kVersion)).c_str(), nullptr);
  // Decoded as it is: before the video mode is set there is no display format to convert it to.
  if (const SurfacePtr icon{mArchive.DecodeImage(kPictureWindowIcon)}) SDL_WM_SetIcon(icon.get(), nullptr);
}

SDL_Surface* VideoSetup::SetVideoMode(const DisplaySize& size) {
  mStep = FormattedText("set the video mode %d x %d%s (choose another in client.ini)", size.width, size.height,
                        size.fullScreen ? " in full screen" : "");
  const std::uint32_t flags = SDL_DOUBLEBUF | (size.fullScreen ? SDL_FULLSCREEN : 0);
  SDL_Surface* surface = SDL_SetVideoMode(size.width, size.height, kBitsPerPixel, flags);
  if (surface == nullptr) {
    Log(InfoLevel::Failure, "Creating main surface failed");
    return nullptr;
  }
  // The screen's own depth, which can differ from the surface's.
  if (const SDL_VideoInfo* info = SDL_GetVideoInfo()) {
    Log(InfoLevel::Progress, FormattedText("Created surface with %d bits per pixel", info->vfmt->BitsPerPixel));
  }
  return surface;
}

void VideoSetup::Log(InfoLevel level, const char* text) { mInfoHandler.HandleInfo(new Info(text, level)); }

}  // namespace tolva
