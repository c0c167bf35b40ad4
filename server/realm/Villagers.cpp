#include "server/realm/Villagers.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace tolva {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// Longer than any name that a player can have, so that nobody can speak in a villager's name.
constexpr const char* kNames[] = {"Maren the boat builder", "Tilo the lamplighter",  "Oda who gathers herbs",
                                  "Jory the shepherd boy",  "Brida with the basket", "Old Kaspar of the well",
                                  "Signe who mends nets",   "Ruben the beekeeper",   "Hedda the ropemaker",
                                  "Matti from the mill",    "Runa who bakes bread",  "Aksel the ferryman"};
static_assert(std::size(kNames) == kMaxVillagers);

constexpr const char* kLines[] = {
    "Good day to you! Mind the wet cobbles.",
    "They say the sea goes on for ever. I have never met anyone who came to its end.",
    "If you want to walk slantwise, the corners of the number pad know the way.",
    "The lanterns are lit at dusk. I would not wander far without them.",
    "Fresh bread tomorrow, if the wind keeps the mill turning.",
    "Past the last house the paths are older than any of us.",
    "Did you hear the gulls this morning? That means herring.",
    "Speak up! Type your words, press Return, and all around will hear you.",
    "My grandmother walked to the next island once. At low tide, she said.",
    "The pier carries you, the water does not. Many have tried it the other way round.",
    "Hold an arrow key down and your feet will do the rest.",
    "There is snow on the rocks up there, even in summer.",
    "Somebody has been at my barrels again.",
    "When you are tired of walking, Escape brings you back to the chat.",
    "Do not lean on that fence, it is newly mended.",
    "I counted the mushrooms in the wood. Then I ate them. Then I counted the trees twice.",
    "You come back to where you left us, you know. We keep your place warm.",
    "My boat leaks. I tell everybody that it is thirsty.",
    "No two islands are alike, but each has somebody who says so.",
    "It will be dark before long. It always is.",
};

// Distances in fields.
constexpr std::int64_t kMaxFromHome = 12;
constexpr std::int64_t kAudience = 40;  // a player this close sees a villager
constexpr std::int64_t kEarshot = 10;   // a player this close can be talked to
// Of the eight directions from a field: with fewer ways it is a doorway, a bridge or a narrow lane.
constexpr int kOpenWays = 6;

constexpr auto kFirstLineAfter = seconds(10);

}  // namespace

Villagers::Villagers(Crowd& crowd, const ArrivalFields& fields, std::size_t count, std::uint64_t seed, TimePoint now)
    : mCrowd(crowd), mRandom(static_cast<std::minstd_rand::result_type>(seed)), mNextLine(now + kFirstLineAfter) {
  const std::span square = std::span(fields.GetAll()).first(fields.GetSquareSize());
  const std::span homes = std::span(fields.GetAll()).subspan(fields.GetSquareSize());
  mSquare.insert(square.begin(), square.end());
  if (homes.empty()) return;
  count = std::min(count, kMaxVillagers);
  for (std::size_t i = 0; i < count; ++i) {
    const WorldPoint home = homes[homes.size() * i / count];
    if (mCrowd.IsTaken(home)) continue;
    mVillagers.push_back({.character = {.name = kNames[i], .point = home}, .home = home, .next = now});
    mCrowd.Join(mVillagers.back().character, now);
  }
}

void Villagers::Tick(TimePoint now) {
  for (Villager& villager : mVillagers)
    if (now >= villager.next && mCrowd.IsPlayerNear(villager.character.point, kAudience)) Stroll(villager, now);
  if (now >= mNextLine) Talk(now);
}

void Villagers::Stroll(Villager& villager, TimePoint now) {
  if (villager.stepsLeft == 0 && IsGoodToStop(villager.character.point)) {
    villager.isResting = !villager.isResting;
    if (villager.isResting) {
      villager.next = now + milliseconds(Pick(2000, 9000));
      return;
    }
    villager.stepsLeft = Pick(2, 7);
    villager.direction = PickDirection();
  }
  TakeStep(villager, now);
  villager.next = now + milliseconds(Pick(450, 700));
}

void Villagers::TakeStep(Villager& villager, TimePoint now) {
  if (TryStep(villager, villager.direction, now)) {
    villager.stepsLeft = std::max(0, villager.stepsLeft - 1);
    return;
  }
  auto directions = kDirections;
  std::rotate(directions.begin(), std::ranges::find(directions, PickDirection()), directions.end());
  for (const Direction direction : directions) {
    villager.direction = direction;
    if (TryStep(villager, direction, now)) return;
  }
}

bool Villagers::TryStep(Villager& villager, Direction direction, TimePoint now) {
  WorldCharacter& character = villager.character;
  const std::int64_t farther = Distance(Next(character.point, direction), villager.home);
  if (farther > kMaxFromHome && farther > Distance(character.point, villager.home)) return false;
  return mCrowd.Step(character, direction, now);
}

bool Villagers::IsGoodToStop(WorldPoint point) {
  if (mSquare.contains(point)) return false;
  return std::ranges::count_if(kDirections, [&](Direction way) { return mCrowd.IsWay(point, way); }) >= kOpenWays;
}

void Villagers::Talk(TimePoint now) {
  std::vector<Villager*> speakers;
  for (Villager& villager : mVillagers)
    if (mCrowd.IsPlayerNear(villager.character.point, kEarshot)) speakers.push_back(&villager);
  if (speakers.empty()) return;
  Villager& speaker = *speakers[static_cast<std::size_t>(Pick(0, static_cast<int>(speakers.size()) - 1))];
  mCrowd.Say(speaker.character, kLines[Pick(0, static_cast<int>(std::size(kLines)) - 1)], now);
  mNextLine = now + seconds(Pick(40, 60));
}

int Villagers::Pick(int first, int last) { return std::uniform_int_distribution(first, last)(mRandom); }

Direction Villagers::PickDirection() { return static_cast<Direction>(Pick(0, kDirectionCount - 1)); }

}  // namespace tolva
