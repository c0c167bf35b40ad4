#pragma once

#include <cstdint>
#include <memory>

#include <SDL_mixer.h>

#include "media/Archive.h"
#include "threads/ManagerThread.h"

namespace tolva {

// The thread that plays the music that its mail asks for, from the archive "Sounds" in the working directory. Takes
// PacketMusicPlay, PacketMusicStop and PacketQuit, which ends the thread; every other packet is deleted. Sends nothing.
// Without an audio device it logs one error and stays silent: it then takes the same mail and plays nothing.
class SoundManager : public ManagerThread {
 public:
  // Starts the thread. `mailbox` belongs to the caller and must outlive the thread.
  explicit SoundManager(Mailbox* mailbox);
  // The thread must have ended: send a PacketQuit and WaitThread first.
  ~SoundManager() override;

  void Run() override;
  void HandleMyMailbox() override;

 private:
  struct MusicDeleter {
    void operator()(Mix_Music* music) const { Mix_FreeMusic(music); }
  };

  void InitAudio();
  void HandlePacket(const Packet& packet);
  void ChangeMusic(std::uint16_t musicId);
  void PlayMusic();
  void StopMusic();
  void CloseAudio();

  std::unique_ptr<Archive> mArchive;
  std::unique_ptr<Mix_Music, MusicDeleter> mMusic;
  std::uint16_t mCurrentMusicId = 0;  // 0: none
  bool mAudioOpen = false;
};

}  // namespace tolva
