#include "server/realm/Villagers.h"

#include <algorithm>
#include <iterator>

namespace tolva {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// Longer than any name that a player can have, so that nobody can speak in a villager's name.
constexpr const char* kNames[] = {"Maren the boat builder", "Tilo the lamplighter",  "Oda who gathers herbs",
                                  "Jory the shepherd boy",  "Brida with the basket", "Old Kaspar of the well",
                                  "Signe who mends nets",   "Ruben the beekeeper",   "Hedda the ropemaker",
                                  "Matti from the mill",    "Runa who bakes bread",  "Aksel the ferryman"};
static_assert(std::size(kNames) == kMostVillagers);

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

constexpr std::int64_t kFarFromHome = 12;
// Who sees a villager, and who stands near enough to be talked to.
constexpr std::int64_t kAudience = 40;
constexpr std::int64_t kEarshot = 10;
// Of the eight ways on from a field: with fewer than that it is a doorway, a bridge or a narrow lane.
constexpr int kOpenWays = 6;

}  // namespace

Villagers::Villagers(Crowd& crowd, const ArrivalFields& fields, std::size_t count, std::uint64_t seed, TimePoint now)
    : mCrowd(crowd), mRandom(static_cast<std::minstd_rand::result_type>(seed)), mNextLine(now + seconds(10)) {
  const std::vector<WorldPoint>& all = fields.GetAll();
  const std::size_t square = fields.GetSquareSize();
  mSquare.insert(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(square));
  if (all.size() == square) return;
  count = std::min(count, kMostVillagers);
  for (std::size_t i = 0; i < count; ++i) {
    // Evenly over the fields around the square.
    const WorldPoint home = all[square + (all.size() - square) * i / count];
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
    villager.direction = static_cast<Direction>(Pick(0, kDirectionCount - 1));
  }
  if (TryStep(villager, villager.direction, now)) {
    villager.stepsLeft = std::max(0, villager.stepsLeft - 1);
  } else {
    // Another way; the first that is open, from a random one on.
    const int first = Pick(0, kDirectionCount - 1);
    for (int i = 0; i < static_cast<int>(kDirectionCount); ++i) {
      villager.direction = static_cast<Direction>((first + i) % static_cast<int>(kDirectionCount));
      if (TryStep(villager, villager.direction, now)) break;
    }
  }
  villager.next = now + milliseconds(Pick(450, 700));
}

bool Villagers::TryStep(Villager& villager, Direction direction, TimePoint now) {
  WorldCharacter& character = villager.character;
  const std::int64_t farther = Distance(Next(character.point, direction), villager.home);
  if (farther > kFarFromHome && farther > Distance(character.point, villager.home)) return false;
  return mCrowd.Step(character, direction, now);
}

bool Villagers::IsGoodToStop(WorldPoint point) {
  if (mSquare.contains(point)) return false;
  int ways = 0;
  for (std::uint32_t d = 0; d < kDirectionCount; ++d) ways += mCrowd.IsWay(point, static_cast<Direction>(d)) ? 1 : 0;
  return ways >= kOpenWays;
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

int Villagers::Pick(int from, int to) { return std::uniform_int_distribution(from, to)(mRandom); }

}  // namespace tolva
