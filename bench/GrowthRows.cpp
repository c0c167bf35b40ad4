#include <string>

#include "Rows.h"
#include "controls/ControlChatBox.h"
#include "harness/Table.h"
#include "plain/Screen.h"
#include "scene/Lobby.h"
#include "scene/Scene.h"

namespace tolva::bench {
namespace {

template <typename Screen>
Sample DrawFrames(Scene& scene, Screen& screen) {
  // Until what is prepared ahead is ready.
  for (int i = 0; i < 300; ++i) screen.Blit();
  return PerCall([&] {
    scene.KeepSpeaking();
    screen.Blit();
  });
}

// Where a frame's time goes: each row draws a further part.
void AddFrameParts(Table& table) {
  const struct {
    const char* name;
    bool hasThings;
    int people;
    int speaking;
  } parts[] = {{"the ground alone", false, 0, 0},
               {"and things", true, 0, 0},
               {"and 40 people", true, 40, 0},
               {"and what 10 of them say", true, 40, 10}};
  for (const auto& part : parts) {
    const std::string name = "Parts: the wood, 1280x1024, " + std::string(part.name);
    if (!table.Wants(name)) continue;
    SDL_Surface& window = SetWindow({1280, 1024});
    Scene scene(FindWood());
    if (!part.hasThings) scene.RemoveThings();
    scene.AddPeople(part.people, part.speaking);
    const auto screen = scene.MakeScreen(window);
    plain::Screen plain(window, scene.GetRepository());
    CopyRing ring(static_cast<std::size_t>(window.pitch) * static_cast<std::size_t>(window.h));
    table.Run({name, DrawFrames(scene, *screen), DrawFrames(scene, plain), "memcpy of the frame",
               PerCall([&] { ring(); }), 0});
  }
}

void AddFrameGrowth(Table& table) {
  const struct {
    Size size;
    int people;
  } views[] = {{{800, 600}, 0},  {{800, 600}, 20},  {{800, 600}, 40},
               {{800, 600}, 80}, {{1024, 768}, 40}, {{1280, 1024}, 40}};
  for (const auto& view : views) {
    const std::string name = "Growth: a frame of the village, " + std::to_string(view.size.width) + "x" +
                             std::to_string(view.size.height) + ", " + std::to_string(view.people) +
                             " people, all speaking";
    if (!table.Wants(name)) continue;
    SDL_Surface& window = SetWindow(view.size);
    Scene scene(FindVillage());
    scene.AddPeople(view.people, view.people);
    const auto screen = scene.MakeScreen(window);
    CopyRing ring(static_cast<std::size_t>(window.pitch) * static_cast<std::size_t>(window.h));
    table.Run({name, DrawFrames(scene, *screen), nullptr, "memcpy of the frame", PerCall([&] { ring(); }), 0});
  }
}

// A line is said behind so many others.
void AddChatGrowth(Table& table) {
  for (const std::size_t lines : {100, 1000, 10000}) {
    const std::string name = "Growth: a message behind " + std::to_string(lines) + " lines";
    if (!table.Wants(name)) continue;
    SDL_Surface& window = SetWindow({800, 600});
    Lobby lobby(window, lines);
    CopyRing ring(static_cast<std::size_t>(window.pitch) * static_cast<std::size_t>(window.h));
    const auto say = [&, number = std::size_t{0}]() mutable {
      const Lobby::Message message = Lobby::GetMessage(++number);
      lobby.GetChatBox().AddEntry(message.name, message.text);
    };
    table.Run({name, PerCall(say), nullptr, "memcpy of the frame", PerCall([&] { ring(); }), 0});
  }
}

}  // namespace

void AddGrowthRows(Table& table) {
  AddFrameParts(table);
  AddFrameGrowth(table);
  AddChatGrowth(table);
}

}  // namespace tolva::bench
