#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include <SDL.h>

#include "display/ScreenGame.h"
#include "foundation/InfoHandler.h"
#include "protocol/WorldPoint.h"
#include "sdl/Rect.h"
#include "server/terrain/World.h"
#include "world/Repository.h"

namespace tolva::bench {

// The directory that a client runs in, with links to the packed archives: a temporary one, which is the working
// directory while this lives. SDL runs without a screen.
class RunDirectory {
 public:
  // `data` is the folder of the archives. Throws when it has none.
  explicit RunDirectory(const std::filesystem::path& data);
  ~RunDirectory();
  RunDirectory(const RunDirectory&) = delete;
  RunDirectory& operator=(const RunDirectory&) = delete;

 private:
  std::filesystem::path mBefore;
  std::filesystem::path mPath;
};

// Sets the mode that the client runs in and returns its window, which stays SDL's.
SDL_Surface& SetWindow(Size size);

// Two places of the world that people know: the square of the arrival village, and the densest wood of that island.
FieldPosition FindVillage();
FieldPosition FindWood();

// A player's map at a place of the real world, with people around.
class Scene {
 public:
  explicit Scene(const FieldPosition& place);

  // Places so many others on free fields that the smallest window shows; the first `speaking` of them speak.
  void AddPeople(int count, int speaking);
  // Leaves the ground alone.
  void RemoveThings();
  // Keeps what they say on the screen. To be called before each frame.
  void KeepSpeaking();
  // Steps to the neighboring field, whatever stands there, and lets the map follow. New areas have their content at
  // once.
  void Step(Direction direction);

  const FieldPosition& GetPlace() const { return mPlace; }
  Repository& GetRepository() { return mRepository; }
  // A game screen whose first ground has been ordered. Must not outlive the scene.
  std::unique_ptr<ScreenGame> MakeScreen(SDL_Surface& window);

 private:
  void FillEmptyAreas();

  World mWorld{1};
  FieldPosition mPlace;
  InfoHandler mLog;
  Repository mRepository;
  std::vector<ClientCharacter*> mSpeaking;
};

}  // namespace tolva::bench
