#include "media/SoundManager.h"

#include <cstdio>

#include "foundation/Guard.h"
#include "protocol/LoginPackets.h"
#include "protocol/MusicPackets.h"

namespace tolva {
namespace {

constexpr char kModule[] = "SoundManager";
constexpr char kMusicFile[] = "Sound.tmp";
constexpr std::uint32_t kPauseMs = 100;

constexpr int kSamplesPerSecond = 22050;
constexpr int kStereo = 2;
constexpr int kChunkSize = 4096;
// Without end, as far as a player can tell.
constexpr int kLoops = 65536;

}  // namespace

SoundManager::SoundManager(Mailbox* mailbox) : ManagerThread(mailbox) {
  Report(mErrHandler, kModule, "SoundManager", [&] {
    mInfoHandler.SetModuleName("SoundManager");
    mArchive = std::make_unique<Archive>("Sounds", &mInfoHandler);
    Start();
  });
}

SoundManager::~SoundManager() {
  Report(mErrHandler, kModule, "~SoundManager", [&] { Log(InfoLevel::Progress, "Terminating"); });
}

void SoundManager::Run() {
  Log(InfoLevel::Progress, "Running");
  // A machine without an audio device plays nothing; its orders are still taken, and it quits as any other.
  mAudioOpen = Report(mErrHandler, kModule, "Run", [&] { InitAudio(); });
  RunPasses(kModule, kPauseMs, [&] { HandleMyMailbox(); });
  StopMusic();
  CloseAudio();
}

void SoundManager::HandleMyMailbox() {
  Guard(kModule, "HandleMyMailbox", [&] {
    const std::unique_ptr<Packet> packet = FetchMail();
    if (packet == nullptr) return;
    LogTraffic("Recieved from mailbox", *packet);
    HandlePacket(*packet);
  });
}

void SoundManager::HandlePacket(const Packet& packet) {
  if (const PacketMusicPlay* play = PacketCast<PacketMusicPlay>(&packet)) {
    ChangeMusic(play->mUintMusicId);
  } else if (PacketCast<PacketMusicStop>(&packet) != nullptr) {
    StopMusic();
  } else if (PacketCast<PacketQuit>(&packet) != nullptr) {
    mRunning = false;
  }
}

void SoundManager::ChangeMusic(std::uint16_t musicId) {
  if (!mAudioOpen || musicId == mCurrentMusicId) return;
  mArchive->Extract(musicId, kMusicFile);
  PlayMusic();
  mCurrentMusicId = musicId;
}

void SoundManager::PlayMusic() {
  Guard(kModule, "PlayMusic", [&] {
    if (mCurrentMusicId != 0) StopMusic();
    mMusic.reset(Mix_LoadMUS(kMusicFile));
    if (mMusic != nullptr) Mix_PlayMusic(mMusic.get(), kLoops);
  });
}

void SoundManager::StopMusic() {
  if (mMusic == nullptr) return;
  Mix_HaltMusic();
  mMusic.reset();
  mCurrentMusicId = 0;
}

void SoundManager::InitAudio() {
  Guard(kModule, "OpenAudio", [&] {
    if (Mix_OpenAudio(kSamplesPerSecond, AUDIO_S16LSB, kStereo, kChunkSize) < 0) {
      throw new Error(kModule, "InitAudio", Mix_GetError());
    }
  });
}

void SoundManager::CloseAudio() {
  if (mAudioOpen) Mix_CloseAudio();
  mAudioOpen = false;
  std::remove(kMusicFile);
}

}  // namespace tolva
