#include "server/Realm.h"

#include "protocol/GamePackets.h"
#include "server/DayClock.h"
#include "server/ServerOptions.h"
#include "server/Session.h"

namespace tolva {
namespace {

// Every user and every villager finds a field.
constexpr std::size_t kFields = kMostUsers + 2 * kMostVillagers;

// A client's character slides for 380 ms, and only then does it ask for the next step. What the network held up may
// come in haste, but not for long.
constexpr std::size_t kStepsAtOnce = 3;
constexpr auto kStepsWindow = std::chrono::milliseconds(1050);

// A client draws all its ground anew for each change, so there are few. Not as dark as the lobby's picture of the
// night: here people must find their way.
constexpr int kDarknessStep = 10;
constexpr int kWorldNight = 150;

}  // namespace

Realm::Player::Player(Session& itsSession, World& world, const Crowd& crowd, WorldPoint point)
    : session(itsSession),
      character{.name = itsSession.GetName(), .point = point, .view = &view},
      view(itsSession, character, crowd.GetIndex()),
      areas(world, itsSession),
      steps(kStepsAtOnce, kStepsWindow) {}

Realm::Realm(std::uint64_t worldSeed, std::size_t villagers, TimePoint now)
    : mWorld(worldSeed), mFields(mWorld, mCrowd, kFields), mVillagers(mCrowd, mFields, villagers, worldSeed, now) {}

void Realm::Enter(Session& session, TimePoint now) {
  auto& player = mPlayers[&session];
  player = std::make_unique<Player>(session, mWorld, mCrowd, FindPlaceFor(session.GetName()));
  session.Send(PacketEnterGameAccept());
  PacketCharPosition position;
  static_cast<FieldPosition&>(position) = ToPosition(player->character.point);
  session.Send(position);
  // Before the placement, a client would draw the place where the player was last in this light.
  SendDarkness(session);
  session.Tell("The arrow keys and the number pad walk, Return speaks, Escape leads back to the chat.");
  mCrowd.Join(player->character, now);
}

void Realm::Leave(Session& session, TimePoint now) {
  const auto found = mPlayers.find(&session);
  if (found == mPlayers.end()) return;
  mLastPlaces.Remember(session.GetName(), found->second->character.point);
  mCrowd.Leave(found->second->character, now);
  mPlayers.erase(found);
}

void Realm::Say(Session& session, const std::string& line, TimePoint now) {
  if (mCrowd.Say(mPlayers.at(&session)->character, line, now)) return;
  session.Tell("Too many are talking at once. Please say that again.");
}

void Realm::Handle(Session& session, const Packet& packet, TimePoint now) {
  Player& player = *mPlayers.at(&session);
  if (const auto* question = PacketCast<PacketAreaVersion>(&packet))
    return player.areas.Ask(*question, player.character.point, now);
  const auto* step = PacketCast<PacketMoveRequest>(&packet);
  // A step that is refused has no answer: the client, which did not move, simply asks again.
  if (step != nullptr && player.steps.HasRoomFor(1, now) && mCrowd.Step(player.character, step->mEnmDirection, now))
    player.steps.Allow(now);
}

void Realm::SetDarkness(std::uint8_t darkness) {
  const int inWorld = darkness * kWorldNight / kDarknessNight;
  const auto shown = static_cast<std::uint8_t>(inWorld / kDarknessStep * kDarknessStep);
  if (shown == mDarkness) return;
  mDarkness = shown;
  for (const auto& [session, player] : mPlayers) SendDarkness(player->session);
}

void Realm::Tick(TimePoint now) {
  for (const auto& [session, player] : mPlayers) {
    player->areas.Work(now);
    player->view.CatchUp(now);
  }
  mVillagers.Tick(now);
}

std::vector<std::string> Realm::GetPlayerNames() const {
  std::vector<std::string> names;
  for (const auto& [session, player] : mPlayers) names.push_back(player->session.GetName());
  return names;
}

WorldPoint Realm::FindPlaceFor(const std::string& name) const {
  if (const auto last = mLastPlaces.Find(name))
    if (const auto field = mFields.FindFreeBy(*last)) return *field;
  return mFields.FindFree().value();
}

void Realm::SendDarkness(Session& session) const {
  PacketDarkness packet;
  packet.mByDarkness = mDarkness;
  session.Send(packet);
}

}  // namespace tolva
