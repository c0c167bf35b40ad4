#pragma once

#include <cstdint>
#include <memory>

#include <SDL_mixer.h>

#include "media/Archive.h"
#include "protocol/MusicPackets.h"
#include "threads/ManagerThread.h"

namespace tolva {

// The thread that plays music from the archive "Sounds" in the working directory. Obeys PacketMusicPlay,
// PacketMusicStop and PacketQuit, which ends the thread; ignores other packets. Sends nothing. Without an audio device
// it logs one error and handles its mail without playing anything.
class SoundManager : public ManagerThread {
 public:
  // Starts the thread. Borrows `mailbox`, which must outlive the thread.
  explicit SoundManager(Mailbox* mailbox);
  // The thread must have ended: send a PacketQuit and WaitThread first.
  ~SoundManager() override;

  void Run() override;
  void HandleMyMailbox() override;

 private:
  struct MusicDeleter {
    void operator()(Mix_Music* music) const;
  };

  void StartAudio();
  void InitAudio();
  void ChangeMusic(MusicId musicId);
  void PlayMusic();
  void StopMusic();
  void CloseAudio();

  std::unique_ptr<Archive> mArchive;
  std::unique_ptr<Mix_Music, MusicDeleter> mMusic;
  MusicId mCurrentMusicId = kNoMusic;
  bool mAudioOpen = false;
};

}  // namespace tolva
