#include <string>

#include "Rows.h"
#include "display/BottomStrip.h"
#include "display/WorldPainter.h"
#include "harness/Table.h"
#include "media/Archive.h"
#include "plain/Ground.h"
#include "plain/WorldPainter.h"
#include "scene/Scene.h"

namespace tolva::bench {
namespace {

constexpr int kPeople = 40;
constexpr int kSpeaking = 10;

// What ScreenGame draws, in the plain way. The bar along the bottom is a hundredth of a frame and left out.
class PlainFrame {
 public:
  PlainFrame(SDL_Surface& window, Scene& scene)
      : mWindow(window),
        mOffsets(window, mGraphics, scene.GetRepository(), mLog),
        mGround(mGraphics, scene.GetRepository()),
        mPainter(window, mGraphics, scene.GetRepository()) {
    mGround.DrawAll();
  }

  void Blit() {
    mGround.Blit(mWindow, mWindow.w / 2 + mOffsets.GetBlitOffsetX() - GroundGrid::kWidth / 2,
                 mWindow.h / 2 + mOffsets.GetBlitOffsetY() - GroundGrid::kHeight / 2);
    mPainter.BlitObjects();
  }

 private:
  SDL_Surface& mWindow;
  InfoHandler mLog;
  Archive mArchive{"Graphics", &mLog};
  GameGraphics mGraphics{&mArchive};
  WorldPainter mOffsets;
  plain::Ground mGround;
  plain::WorldPainter mPainter;
};

}  // namespace

void AddFrameRows(Table& table) {
  const struct {
    Size size;
    const char* name;
    FieldPosition place;
    double aim;
  } frames[] = {{{800, 600}, "village", FindVillage(), 5},
                {{800, 600}, "wood", FindWood(), 8},
                {{1280, 1024}, "village", FindVillage(), 6},
                {{1280, 1024}, "wood", FindWood(), 7.5}};
  for (const auto& frame : frames) {
    SDL_Surface& window = SetWindow(frame.size);
    Scene scene(frame.place);
    scene.AddPeople(kPeople, kSpeaking);
    const auto screen = scene.MakeScreen(window);
    PlainFrame plain(window, scene);
    // Until what is prepared ahead is ready.
    for (int i = 0; i < 100; ++i) screen->Blit();
    CopyRing ring(static_cast<std::size_t>(window.pitch) * static_cast<std::size_t>(window.h));
    const auto draw = [&](auto& shown) {
      return PerCall([&] {
        scene.KeepSpeaking();
        shown.Blit();
      });
    };
    table.Run({"A frame of the " + std::string(frame.name) + ", " + std::to_string(frame.size.width) + "x" +
                   std::to_string(frame.size.height),
               draw(*screen), draw(plain), "memcpy of the frame", PerCall([&] { ring(); }), frame.aim});
  }
}

}  // namespace tolva::bench
