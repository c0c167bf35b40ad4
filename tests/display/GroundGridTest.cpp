#include <random>

#include "display/GameFixture.h"
#include "protocol/PacketDispatch.h"

namespace tolva::test {
namespace {

// A game screen in a world that the controller changes between two frames, and that hears of it late.
class GroundGridTest : public GameFixture {
 protected:
  void SetUp() override {
    GameFixture::SetUp();
    mScreen = MakeScreen(*mWindow);
  }
  std::unique_ptr<ScreenGame> MakeScreen(SDL_Surface& window) {
    return std::make_unique<ScreenGame>(0, &window, nullptr, nullptr, &mWorld.log, &mWorld.repository);
  }
  Uint32 Dice(Uint32 sides) { return mRandom() % sides; }
  AreaPosition GetCenter() const { return mWorld.map.GetCenterArea()->GetPosition(); }

  void Place() {
    AreaPosition area = GetCenter();
    for (Uint32 steps = Dice(4); steps > 0; --steps) area = NextArea(area, kSteps[Dice(8)]);
    const PacketCharPosition placement({area, Uint8(Dice(kAreaEdge)), Uint8(Dice(kAreaEdge))});
    ASSERT_TRUE(mWorld.sync.SynchronizeMap(placement));
    mMail.Put(new PacketInternStatus(0, kMapAreas));
    mMail.Put(placement.Clone());
  }
  // Onto a field of a neighboring area. The map has not followed when the next frame comes.
  void Step() {
    Area* next = mWorld.player.GetField()->GetArea()->GetNeighbor(kDirections[Dice(8)]);
    if (next == nullptr) return;
    mWorld.player.GetField()->RemoveCharacter();
    next->GetField(Uint8(Dice(kAreaEdge)), Uint8(Dice(kAreaEdge)))->AddCharacter(&mWorld.player);
  }
  void StepAndFollow() {
    Step();
    mWorld.sync.UpdateMapAfterMove();
  }
  void ChangeGround() {
    PacketAreaGround ground({mWorld.map.GetAreaAt(Uint8(Dice(kMapEdge)), Uint8(Dice(kMapEdge)))->GetPosition(), 1});
    for (Uint32& id : ground.mUintGround) id = kGround + 16 * Dice(4);
    ground.mBySmoothness.fill(Uint8(Dice(8)));
    mWorld.sync.UpdateAreaGround(ground);
  }
  void Darken() { mMail.Put(new PacketDarkness(Uint8(50 * Dice(4)))); }
  void Draw() { mScreen->Blit(); }
  void DeliverNext() {
    std::unique_ptr<Packet> packet = mMail.Get();
    if (packet == nullptr) return;
    Dispatch(
        *packet, [&](const PacketDarkness& light) { mDarkness = light.mByDarkness; },
        [&](const PacketInternStatus& status) { mShowsProgress = status.mUintValue != status.mUintMaxValue; });
    mScreen->HandlePacket(packet.release());
  }

  void DoAnything() {
    using Self = GroundGridTest;
    static constexpr void (Self::*kDeeds[])() = {&Self::Place,       &Self::StepAndFollow, &Self::Step,
                                                 &Self::Darken,      &Self::ChangeGround,  &Self::Draw,
                                                 &Self::DeliverNext, &Self::DeliverNext};
    (this->*kDeeds[Dice(std::size(kDeeds))])();
  }

  std::mt19937 mRandom{8};
  const SurfacePtr mWindow = MakeWindow();
  std::unique_ptr<ScreenGame> mScreen;
  Mailbox mMail;
  Uint8 mDarkness = 0;  // what the screen has heard of
  bool mShowsProgress = false;
};

TEST_F(GroundGridTest, AlwaysShowsTheGroundOfThePlace) {
  const SurfacePtr freshWindow = MakeWindow();
  Place();
  while (mMail.GetCount() > 0) DeliverNext();
  for (int round = 0; round < 40; ++round) {
    for (Uint32 events = Dice(8); events > 0; --events) DoAnything();
    mMail.Put(new PacketInternStatus(kMapAreas, kMapAreas));
    while (mShowsProgress) DeliverNext();

    EndSlide();
    const auto fresh = MakeScreen(*freshWindow);
    fresh->HandlePacket(new PacketDarkness(mDarkness));
    EndSynchronization(*fresh, {GetCenter(), 0, 0});
    mScreen->Blit();
    fresh->Blit();
    const auto aboveTheCursor = static_cast<std::size_t>(mWindow->pitch) * (1024 - 60);  // which blinks
    ASSERT_EQ(std::memcmp(mWindow->pixels, freshWindow->pixels, aboveTheCursor), 0) << "round " << round;
  }
}

}  // namespace
}  // namespace tolva::test
