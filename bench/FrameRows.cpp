#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "Rows.h"
#include "harness/Table.h"
#include "plain/Screen.h"
#include "scene/Scene.h"

namespace tolva::bench {
namespace {

constexpr int kPeople = 40;
constexpr int kSpeaking = 10;

std::string NameOf(const std::string& work, Size size) {
  return work + ", " + std::to_string(size.width) + "x" + std::to_string(size.height);
}

// Until what is prepared ahead is ready.
void Settle(ScreenGame& screen) {
  for (int i = 0; i < 300; ++i) screen.Blit();
}

// The most that one of so many frames takes.
Cost MeasureWorst(ScreenGame& screen, int frames) {
  Cost worst;
  for (int i = 0; i < frames; ++i) {
    const Cost frame = Measure([&] { screen.Blit(); });
    if (frame.microseconds > worst.microseconds) worst = frame;
  }
  return worst;
}

// The panel of messages and the bar lie at the bottom of our window alone.
constexpr int kBottom = 60;

// What is faster must still show the same.
void CheckSameView(SDL_Surface& window, ScreenGame& ours, plain::Screen& plain) {
  const auto bytes = static_cast<std::size_t>(window.pitch) * static_cast<std::size_t>(window.h - kBottom);
  ours.Blit();
  const auto* pixels = static_cast<const std::uint8_t*>(window.pixels);
  const std::vector<std::uint8_t> shown(pixels, pixels + bytes);
  plain.Blit();
  if (!std::equal(shown.begin(), shown.end(), pixels)) throw std::runtime_error("the plain way shows something else");
}

void AddStillFrames(Table& table) {
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
    const std::string name = NameOf("A frame of the " + std::string(frame.name), frame.size);
    if (!table.Wants(name)) continue;
    SDL_Surface& window = SetWindow(frame.size);
    Scene scene(frame.place);
    scene.AddPeople(kPeople, kSpeaking);
    const auto screen = scene.MakeScreen(window);
    plain::Screen plain(window, scene.GetRepository());
    Settle(*screen);
    CheckSameView(window, *screen, plain);
    CopyRing ring(static_cast<std::size_t>(window.pitch) * static_cast<std::size_t>(window.h));
    const auto draw = [&](auto& shown) {
      return PerCall([&] {
        scene.KeepSpeaking();
        shown.Blit();
      });
    };
    table.Run({name, draw(*screen), draw(plain), "memcpy of the frame", PerCall([&] { ring(); }), frame.aim});
  }
}

// Walks over a border of areas and back. In both directions a row and a column of rectangles come in.
void AddBorders(Table& table) {
  constexpr int kFramesOfAStep = 10;
  for (const auto& [name, place] : {std::pair{"village", FindVillage()}, {"wood", FindWood()}}) {
    const Size size{1280, 1024};
    const std::string work = NameOf("Worst frame of a walk over a border, " + std::string(name), size);
    if (!table.Wants(work)) continue;
    SDL_Surface& window = SetWindow(size);
    Scene scene(place);
    const auto screen = scene.MakeScreen(window);
    Settle(*screen);
    const auto walk = [&](Direction direction) {
      Cost worst;
      for (int step = 0; step < kAreaEdge; ++step) {
        scene.Step(direction);
        const Cost frame = MeasureWorst(*screen, kFramesOfAStep);
        if (frame.microseconds > worst.microseconds) worst = frame;
      }
      return worst;
    };
    plain::Screen plain(window, scene.GetRepository());
    bool isThere = false;
    table.Run({work,
               [&] {
                 isThere = !isThere;
                 return walk(isThere ? Direction::SouthEast : Direction::NorthWest);
               },
               [&] {
                 return Measure([&] {
                   plain.CrossBorder(0, 0);
                   plain.Blit();
                 });
               },
               "the plain way", nullptr, 1.0 / 5});
  }
}

void AddDarkness(Table& table) {
  // Longer than it takes to draw and to darken all that is not seen.
  constexpr int kFrames = 400;
  for (const Size size : {Size{800, 600}, Size{1280, 1024}}) {
    const std::string name = NameOf("Worst frame of a step of darkness, village", size);
    if (!table.Wants(name)) continue;
    SDL_Surface& window = SetWindow(size);
    Scene scene(FindVillage());
    const auto screen = scene.MakeScreen(window);
    Settle(*screen);
    plain::Screen plain(window, scene.GetRepository());
    std::uint8_t darkness = 0;
    std::uint8_t plainDarkness = 0;
    table.Run({name,
               [&] {
                 darkness = static_cast<std::uint8_t>((darkness + 10) % 200);
                 const Cost first = Measure([&] {
                   screen->HandlePacket(new PacketDarkness(darkness));
                   screen->Blit();
                 });
                 const Cost later = MeasureWorst(*screen, kFrames);
                 return first.microseconds > later.microseconds ? first : later;
               },
               [&] {
                 plainDarkness = static_cast<std::uint8_t>((plainDarkness + 10) % 200);
                 plain.PrepareDarkness(plainDarkness);
                 return Measure([&] {
                   plain.SetDarkness(plainDarkness);
                   plain.Blit();
                 });
               },
               "the plain way", nullptr, 1.0 / 3});
    screen->HandlePacket(new PacketDarkness(plainDarkness));
    CheckSameView(window, *screen, plain);
  }
}

}  // namespace

void AddFrameRows(Table& table) {
  AddStillFrames(table);
  AddBorders(table);
  AddDarkness(table);
}

}  // namespace tolva::bench
