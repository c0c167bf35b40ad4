#include "scene/Scene.h"

#include <array>
#include <cstdlib>
#include <random>
#include <stdexcept>
#include <string>

#include "foundation/Ticks.h"
#include "server/terrain/ArrivalIsland.h"

namespace tolva::bench {
namespace {

constexpr std::array kLines = {"Has anyone fed the ducks today?", "Ferry leaves at sunset", "Good evening!",
                               "I wait for you at the mill, bring the long rope and both lamps",
                               "No light in the wood after dark"};

// The half widths, in fields, of what an 800 by 600 window shows.
constexpr int kColumnsAround = 4;
constexpr int kRowsAround = 6;
constexpr int kMaxTries = 10000;

}  // namespace

RunDirectory::RunDirectory(const std::filesystem::path& data) : mBefore(std::filesystem::current_path()) {
  std::string pattern = std::filesystem::temp_directory_path() / "tolva-bench-XXXXXX";
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make a temporary directory");
  mPath = pattern;
  for (const char* name : {"Graphics.cci", "Graphics.cca", "Sounds.cci", "Sounds.cca"}) {
    const std::filesystem::path file = std::filesystem::absolute(data / name);
    if (!std::filesystem::exists(file)) throw std::runtime_error("no archive " + file.string());
    std::filesystem::create_symlink(file, mPath / name);
  }
  std::filesystem::create_directory(mPath / "area");
  std::filesystem::current_path(mPath);
}

RunDirectory::~RunDirectory() {
  std::filesystem::current_path(mBefore);
  std::filesystem::remove_all(mPath);
}

SDL_Surface& SetWindow(Size size) {
  ::setenv("SDL_VIDEODRIVER", "dummy", 1);
  if (SDL_WasInit(SDL_INIT_VIDEO) == 0 && SDL_Init(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE) != 0) {
    throw std::runtime_error(SDL_GetError());
  }
  SDL_Surface* window = SDL_SetVideoMode(size.width, size.height, 16, SDL_DOUBLEBUF);
  if (window == nullptr) throw std::runtime_error(SDL_GetError());
  return *window;
}

FieldPosition FindVillage() { return ToPosition(kHome); }

FieldPosition FindWood() { return ToPosition({kHome.x + 207, kHome.y - 56}); }

Scene::Scene(const FieldPosition& place) : mPlace(place) {
  ClientMap& map = mRepository.GetMap();
  map.SetMapCoordinatesByCenter(place);
  FillEmptyAreas();
  map.GetField(place)->AddCharacter(&mRepository.GetPlayer());
}

void Scene::FillEmptyAreas() {
  for (std::uint8_t i = 0; i < kMapAreas; ++i) {
    Area& area = *mRepository.GetMap().GetAreaAt(i / kMapEdge, i % kMapEdge);
    if (area.GetVersion() != 0) continue;
    const auto content = mWorld.GetArea(area.GetPosition());
    for (std::size_t k = 0; k < kAreaFields; ++k) {
      Field& field = area.GetFields()[k];
      field.SetGroundId(content->ground[k]);
      field.SetSmoothness(content->smoothness[k]);
      field.SetVoluId(content->volu[k]);
    }
    area.SetVersion(content->version);
  }
}

void Scene::AddPeople(int count, int speaking) {
  const WorldPoint player = ToPoint(mPlace);
  std::mt19937 random(7);
  const auto within = [&](int distance) {
    return static_cast<int>(random() % static_cast<unsigned>(2 * distance + 1)) - distance;
  };
  for (int tries = 0; count > 0; ++tries) {
    if (tries > kMaxTries) throw std::runtime_error("the place has no room for so many");
    const int east = within(kColumnsAround);
    const int south = within(kRowsAround);
    const int half = within(1);
    const FieldPosition place = ToPosition({player.x + east + south + half, player.y + east - south});
    Field* field = mRepository.GetMap().GetField(place);
    if (!mWorld.IsWalkable(place) || field->IsOccupied()) continue;
    auto character = std::make_unique<ClientCharacter>();
    // They look in all directions and stand still: so each frame shows the same.
    character->StartMove(kDirections[random() % kDirectionCount], 0);
    for (std::uint32_t tick = 0; character->IsMoving(); tick += 20) character->Animate(tick);
    if (speaking-- > 0) {
      character->SetChatMessage(kLines[random() % kLines.size()]);
      character->SetName(("Guest " + std::to_string(count)).c_str());
      mSpeaking.push_back(character.get());
    }
    mRepository.GetMap().AddCharacter(*field, std::move(character));
    --count;
  }
  KeepSpeaking();
}

void Scene::RemoveThings() {
  for (std::uint8_t i = 0; i < kMapAreas; ++i) {
    Area& area = *mRepository.GetMap().GetAreaAt(i / kMapEdge, i % kMapEdge);
    for (Field& field : area.GetFields()) field.SetVoluId(0);
  }
}

void Scene::KeepSpeaking() {
  for (ClientCharacter* character : mSpeaking) character->SetMessageTick(GetTicks());
}

void Scene::Step(Direction direction) {
  ClientMap& map = mRepository.GetMap();
  Field& from = *mRepository.GetPlayer().GetField();
  Field& to = *from.GetNeighbor(direction);
  map.RemoveCharacter(to);
  from.RemoveCharacter();
  to.AddCharacter(&mRepository.GetPlayer());
  const tolva::Step areas = map.GetStepsFromCenter(*to.GetArea());
  if (areas != tolva::Step{}) {
    map.ShiftAreas(DirectionOf({-areas.x, -areas.y}));
    FillEmptyAreas();
  }
  mPlace = {to.GetArea()->GetPosition(), to.GetFx(), to.GetFy()};
}

std::unique_ptr<ScreenGame> Scene::MakeScreen(SDL_Surface& window) {
  auto screen = std::make_unique<ScreenGame>(0, &window, nullptr, nullptr, &mLog, &mRepository);
  screen->HandlePacket(new PacketCharPosition(mPlace));
  screen->HandlePacket(new PacketInternStatus(kMapAreas, kMapAreas));
  return screen;
}

}  // namespace tolva::bench
