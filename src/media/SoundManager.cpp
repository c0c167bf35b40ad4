#include "media/SoundManager.h"

#include <cstdio>
#include <utility>

#include "foundation/Guard.h"
#include "media/Mixer.h"
#include "protocol/PacketDispatch.h"

namespace tolva {
namespace {

constexpr char kModule[] = "SoundManager";
constexpr char kMusicFile[] = "Sound.tmp";
constexpr std::uint32_t kPauseMs = 100;

constexpr int kSamplesPerSecond = 22050;
constexpr int kStereo = 2;
constexpr int kChunkSize = 4096;
// As good as endless for a player.
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
  bool isStarted = false;
  RunPasses(kModule, kPauseMs, [&] {
    if (!std::exchange(isStarted, true)) StartAudio();
    HandleMyMailbox();
  });
  StopMusic();
  CloseAudio();
}

// After the first pause, by when the client shows its first picture: loading SDL_mixer and opening the device would
// hold that up. Without an audio device the thread goes on, so that it still takes its mail and quits.
void SoundManager::StartAudio() {
  mAudioOpen = Report(mErrHandler, kModule, "Run", [&] { InitAudio(); });
}

void SoundManager::HandleMyMailbox() {
  Guard(kModule, "HandleMyMailbox", [&] {
    const std::unique_ptr<Packet> packet = FetchMail();
    if (packet == nullptr) return;
    LogTraffic("Recieved from mailbox", *packet);
    Dispatch(
        *packet, [&](const PacketMusicPlay& play) { ChangeMusic(play.mUintMusicId); },
        [&](const PacketMusicStop&) { StopMusic(); }, [&](const PacketQuit&) { mRunning = false; });
  });
}

void SoundManager::ChangeMusic(MusicId musicId) {
  if (!mAudioOpen || musicId == mCurrentMusicId) return;
  mArchive->Extract(musicId, kMusicFile);
  PlayMusic();
  mCurrentMusicId = musicId;
}

void SoundManager::PlayMusic() {
  Guard(kModule, "PlayMusic", [&] {
    if (mCurrentMusicId != kNoMusic) StopMusic();
    mMusic.reset(Mixer::Get().loadMusic(kMusicFile));
    if (mMusic != nullptr) Mixer::Get().playMusic(mMusic.get(), kLoops);
  });
}

void SoundManager::MusicDeleter::operator()(Mix_Music* music) const { Mixer::Get().freeMusic(music); }

void SoundManager::StopMusic() {
  if (mMusic == nullptr) return;
  Mixer::Get().haltMusic();
  mMusic.reset();
  mCurrentMusicId = kNoMusic;
}

void SoundManager::InitAudio() {
  Guard(kModule, "OpenAudio", [&] {
    if (Mixer::Get().openAudio(kSamplesPerSecond, AUDIO_S16LSB, kStereo, kChunkSize) < 0) {
      throw new Error(kModule, "InitAudio", Mix_GetError());
    }
  });
}

void SoundManager::CloseAudio() {
  if (mAudioOpen) Mixer::Get().closeAudio();
  mAudioOpen = false;
  std::remove(kMusicFile);
}

}  // namespace tolva
