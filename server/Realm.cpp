#include "server/Realm.h"

#include "protocol/GamePackets.h"
#include "protocol/PacketDispatch.h"
#include "server/DayClock.h"
#include "server/ServerOptions.h"
#include "server/Session.h"

namespace tolva {
namespace {

// Enough fields for every user and every villager.
constexpr std::size_t kFields = kMaxUsers + 2 * kMaxVillagers;

// A client asks for a step once its character has slid for 380 ms. Steps that the network held up may come close
// together, but not for long.
constexpr std::size_t kMaxSteps = 3;
constexpr auto kStepsWindow = std::chrono::milliseconds(1050);

// A client redraws all its ground for each change, so there are few. Nights are not as dark as in the lobby's picture:
// people must find their way.
constexpr int kDarknessStep = 10;
constexpr int kWorldNight = 150;

}  // namespace

Realm::Player::Player(Session& ownSession, World& world, const Crowd& crowd, WorldPoint point)
    : session(ownSession),
      character{.name = ownSession.GetName(), .point = point, .view = &view},
      view(ownSession, character, crowd.GetIndex()),
      areas(world, ownSession),
      steps(kMaxSteps, kStepsWindow) {}

Realm::Realm(std::uint64_t worldSeed, std::size_t villagers, TimePoint now)
    : mWorld(worldSeed), mFields(mCrowd, kFields), mVillagers(mCrowd, mFields, villagers, worldSeed, now) {}

void Realm::Enter(Session& session, TimePoint now) {
  auto& player = mPlayers[&session];
  player = std::make_unique<Player>(session, mWorld, mCrowd, FindFieldFor(session.GetName()));
  session.Send(PacketEnterGameAccept());
  session.Send(PacketCharPosition(ToPosition(player->character.point)));
  // After the position, or the client would first draw the player's last surroundings in this light.
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
  Dispatch(
      packet, [&](const PacketAreaVersion& request) { player.areas.Ask(request, player.character.point, now); },
      [&](const PacketMoveRequest& request) { Step(player, request.mEnmDirection, now); });
}

void Realm::Step(Player& player, Direction direction, TimePoint now) {
  // A refused step has no answer: the client, which has not moved, simply asks again.
  if (!player.steps.HasRoomFor(1, now) || !mCrowd.Step(player.character, direction, now)) return;
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

WorldPoint Realm::FindFieldFor(const std::string& name) const {
  if (const auto last = mLastPlaces.Find(name))
    if (const auto field = mFields.FindFreeNear(*last)) return *field;
  return mFields.FindFree().value();
}

void Realm::SendDarkness(Session& session) const { session.Send(PacketDarkness(mDarkness)); }

}  // namespace tolva
