#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <SDL.h>
#include <gtest/gtest.h>

#include "controls/ControlLabel.h"
#include "display/Display.h"
#include "display/PictureIds.h"
#include "protocol/ChatPackets.h"
#include "protocol/GamePackets.h"
#include "protocol/InternPackets.h"
#include "protocol/LoginPackets.h"
#include "support/Correspondent.h"
#include "support/Events.h"
#include "support/Golden.h"
#include "support/TempDir.h"
#include "support/TestArchive.h"
#include "support/TestPng.h"

namespace tolva::test {

using Entries = std::map<std::uint32_t, std::string>;

// As large as the island and of one color.
inline std::string MakePicture(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  return MakePng({.width = 300, .height = 60, .color = PngColor::Palette, .palette = {r, g, b}});
}

inline Entries OnlyTheFont() { return {{1, ReadFile("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf")}}; }

// Every picture that the screens know, each of its own color; none has the color (0, 255, 255).
inline Entries AllPictures() {
  Entries entries = OnlyTheFont();
  entries[kPictureWindowIcon] = entries[kPictureTitle] = MakePicture(80, 80, 200);
  entries[kPictureIslandDay] = MakePicture(255, 0, 0);
  entries[kPictureIslandDusk] = MakePicture(0, 255, 0);
  entries[kPictureIslandNight] = MakePicture(0, 0, 255);
  for (PictureId id = kPictureFrame; id <= kPicturePanel; ++id) {
    const auto shade = static_cast<std::uint8_t>(16 * (id - kPictureFrame));
    entries[id] = MakePicture(static_cast<std::uint8_t>(240 - shade), 60, shade);
  }
  return entries;
}

inline void WriteGraphics(const Entries& entries) {
  std::vector<TestRecord> records;
  std::string data;
  for (const auto& [id, content] : entries) {
    records.push_back({id, static_cast<std::uint32_t>(data.size()), static_cast<std::uint32_t>(content.size())});
    data += content;
  }
  WriteFile("Graphics.cci", MakeIndex(records));
  WriteFile("Graphics.cca", data);
}

// A display whose frames the test runs one by one.
class SteppedDisplay : public Display {
 public:
  using Display::Display;
  using Display::GetScreen;
  using Display::RunPass;
};

// A display that a test drives with events and mail, with the mailbox of a controller behind it.
class DisplayFixture : public ::testing::Test {
 protected:
  DisplayFixture() { EXPECT_EQ(SDL_Init(SDL_INIT_NOPARACHUTE), 0); }
  ~DisplayFixture() override {
    mDisplay.reset();
    SDL_Quit();
  }

  void Start(const Entries& entries = AllPictures()) {
    WriteGraphics(entries);
    mDisplay.reset();
    mDisplay = std::make_unique<SteppedDisplay>(&mMailbox);
    Deliver(PacketInternCentralMailbox(&mController));
  }

  void Put(const Packet& packet) { EXPECT_TRUE(mMailbox.Put(packet.Clone())); }
  static void Push(SDL_Event event) { EXPECT_EQ(SDL_PushEvent(&event), 0); }

  // Each of these runs a frame.
  void Deliver(const Packet& packet) {
    Put(packet);
    mDisplay->RunPass();
  }
  // Letters, and the keys that "\r", "\t" and "\x1b" stand for.
  void Type(const std::string& keys) {
    for (const char key : keys) Push(KeyEvent({0, static_cast<SDLKey>(key), KMOD_NONE, static_cast<Uint8>(key)}));
    mDisplay->RunPass();
  }
  void Click(int x, int y, int button = SDL_BUTTON_LEFT) {
    for (const Uint8 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP}) Push(MouseEvent(type, x, y, button));
    mDisplay->RunPass();
  }
  void ClickOn(std::initializer_list<std::uint32_t> way) {
    ControlBasic* control = mDisplay->GetScreen();
    int x = 0;
    int y = 0;
    for (const std::uint32_t id : way) {
      control = control->GetSubControl(id);
      x += control->GetX();
      y += control->GetY();
    }
    Click(x + control->GetWidth() / 2, y + control->GetHeight() / 2);
  }

  // The codes of what was sent to the controller since the last call.
  Codes Sent() {
    Codes codes;
    while (const auto packet = mController.Get()) codes.push_back(packet->mEnmCode);
    return codes;
  }
  template <typename T>
  const T& NextSent() {
    mNextSent = mController.Get();
    return dynamic_cast<const T&>(*mNextSent);
  }

  // The control at the end of a way of ids that starts at the screen.
  template <typename T>
  T& Find(std::initializer_list<std::uint32_t> way) {
    ControlBasic* control = mDisplay->GetScreen();
    for (const std::uint32_t id : way) control = control->GetSubControl(id);
    return dynamic_cast<T&>(*control);
  }
  std::string TextOf(std::initializer_list<std::uint32_t> way) { return Find<ControlLabel>(way).GetText(); }

  // Whether the part of the next frame is the golden picture.
  auto Matches(const std::string& golden, const Rect& part) {
    mDisplay->RunPass();
    return MatchesGolden(golden, *SDL_GetVideoSurface(), part);
  }
  static Rgb PixelAt(int x, int y) {
    const SDL_Surface* video = SDL_GetVideoSurface();
    const auto* row = static_cast<const Uint8*>(video->pixels) + y * video->pitch;
    Rgb color;
    SDL_GetRGB(reinterpret_cast<const Uint16*>(row)[x], video->format, &color.r, &color.g, &color.b);
    return color;
  }

  TempDir mDir;
  Mailbox mMailbox;
  Mailbox mController;
  std::unique_ptr<Packet> mNextSent;
  std::unique_ptr<SteppedDisplay> mDisplay;
};

}  // namespace tolva::test
