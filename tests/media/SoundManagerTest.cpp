#include <atomic>
#include <cstdlib>

#include <gtest/gtest.h>

#include "media/SoundManager.h"
#include "protocol/LoginPackets.h"
#include "protocol/MusicPackets.h"
#include "support/TestArchive.h"
#include "support/WaitUntil.h"

namespace tolva::test {
namespace {

constexpr char kMusicFile[] = "Sound.tmp";

class SoundManagerTest : public ::testing::Test {
 protected:
  void Start() {
    const std::string music = ReadFile(TOLVA_TEST_MUSIC);
    const auto size = static_cast<std::uint32_t>(music.size());
    WriteFile("Sounds.cci", MakeIndex({{7, size, size + 1}, {1, 0, size}}));
    WriteFile("Sounds.cca", music + music + '\0');
    mSoundManager = std::make_unique<SoundManager>(&mMailbox);
  }
  // Makes SDL choose its driver again for the next test.
  void TearDown() override { SDL_Quit(); }

  // Sends the order and waits until it has been carried out: a later pass fetches the pause that follows it.
  void Order(Packet* packet) {
    ASSERT_TRUE(mMailbox.Put(packet));
    ASSERT_TRUE(mMailbox.Put(new PacketMusicPause));
    ASSERT_TRUE(WaitUntil([&] { return mMailbox.GetCount() == 0; }));
  }
  void Quit() {
    ASSERT_TRUE(mMailbox.Put(new PacketQuit));
    mSoundManager->WaitThread(nullptr);
    mSoundManager.reset();
  }

  TempDir mDir;
  Mailbox mMailbox;
  std::unique_ptr<SoundManager> mSoundManager;
};

// Counts the audio bytes that are not silence.
std::atomic<int> gLoudBytes = 0;
void CountLoudBytes(void*, Uint8* stream, int length) {
  for (int at = 0; at < length; ++at) gLoudBytes += stream[at] != 0 ? 1 : 0;
}

TEST_F(SoundManagerTest, LoopsAPieceUntilItIsStopped) {
  Start();
  Order(new PacketMusicStop);
  Order(new PacketMusicPlay(1));
  EXPECT_EQ(Mix_PlayingMusic(), 1);
  Mix_SetPostMix(&CountLoudBytes, nullptr);
  constexpr int kPieceBytes = 2205 * 2 * 2;  // a tenth of a second in stereo
  EXPECT_TRUE(WaitUntil([] { return gLoudBytes > 5 * kPieceBytes; }));
  ASSERT_TRUE(std::filesystem::remove(kMusicFile));
  Order(new PacketMusicPlay(1));
  EXPECT_FALSE(std::filesystem::exists(kMusicFile)) << "it is playing already, so nothing is extracted";
  Order(new PacketMusicStop);
  EXPECT_EQ(Mix_PlayingMusic(), 0);
  Order(new PacketMusicPlay(1));
  EXPECT_EQ(Mix_PlayingMusic(), 1);
  Order(new PacketMusicPlay(7));
  EXPECT_EQ(ReadFile(kMusicFile), ReadFile(TOLVA_TEST_MUSIC) + '\0') << "the requested piece";
  Quit();
  EXPECT_EQ(Mix_QuerySpec(nullptr, nullptr, nullptr), 0);
  EXPECT_FALSE(std::filesystem::exists(kMusicFile));
}

TEST_F(SoundManagerTest, IsSilentAndQuitsWithoutAnAudioDevice) {
  ::setenv("SDL_AUDIODRIVER", "none that exists", 1);
  Start();
  Order(new PacketMusicPlay(1));
  EXPECT_FALSE(std::filesystem::exists(kMusicFile));
  Order(new PacketMusicStop);
  Quit();
  const std::string log = ReadFile("log.clf");
  const std::string report = "in Module SoundManager - Method InitAudio\n";
  EXPECT_NE(log.find(report), std::string::npos) << log;
  EXPECT_EQ(log.find(report), log.rfind(report)) << "reported once";
}

}  // namespace
}  // namespace tolva::test
