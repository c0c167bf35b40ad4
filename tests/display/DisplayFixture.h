#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <SDL.h>
#include <gtest/gtest.h>

#include "controls/ControlLabel.h"
#include "display/Display.h"
#include "display/PictureIds.h"
#include "protocol/InternPackets.h"
#include "support/TempDir.h"
#include "support/TestArchive.h"
#include "support/TestPng.h"

namespace tolva::test {

// Pictures of one colour each, by id.
struct PlainPicture {
  std::uint32_t width;
  std::uint32_t height;
  Rgb color;
};
using Pictures = std::map<PictureId, PlainPicture>;

// One for every picture the screens know; none has the colour (0, 255, 255).
inline Pictures AllPictures() {
  Pictures pictures{{kPictureWindowIcon, {32, 32, {9, 9, 9}}},
                    {kPictureTitle, {300, 100, {80, 80, 200}}},
                    {kPictureIslandDay, {300, 60, {255, 0, 0}}},
                    {kPictureIslandDusk, {300, 60, {0, 255, 0}}},
                    {kPictureIslandNight, {300, 60, {0, 0, 255}}}};
  for (PictureId id = kPictureFrame; id <= kPicturePanel; ++id) pictures[id] = {32, 32, {100, 90, 80}};
  return pictures;
}

// The archive "Graphics" in the working directory.
inline void WriteGraphics(const Pictures& pictures, const std::string& font) {
  std::vector<TestRecord> records;
  std::string data;
  const auto add = [&](std::uint32_t id, const std::string& content) {
    records.push_back({id, static_cast<std::uint32_t>(data.size()), static_cast<std::uint32_t>(content.size())});
    data += content;
  };
  if (!font.empty()) add(1, font);
  for (const auto& [id, picture] : pictures) {
    TestPicture png{.width = picture.width, .height = picture.height};
    for (std::uint32_t pixel = 0; pixel < picture.width * picture.height; ++pixel) {
      png.samples.insert(png.samples.end(), {picture.color.r, picture.color.g, picture.color.b});
    }
    add(id, MakePng(png));
  }
  WriteFile("Graphics.cci", MakeIndex(records));
  WriteFile("Graphics.cca", data);
}

inline std::string ReadFont() { return ReadFile("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"); }

// A display whose frames the test runs one by one.
class SteppedDisplay : public Display {
 public:
  using Display::Display;
  using Display::GetScreen;
  using Display::RunPass;
};

class DisplayFixture : public ::testing::Test {
 protected:
  DisplayFixture() { EXPECT_EQ(SDL_Init(SDL_INIT_NOPARACHUTE), 0); }
  ~DisplayFixture() override {
    mDisplay.reset();
    SDL_Quit();
  }

  void Start(const Pictures& pictures = AllPictures(), const std::string& font = ReadFont()) {
    WriteGraphics(pictures, font);
    mDisplay.reset();
    mDisplay = std::make_unique<SteppedDisplay>(&mMailbox);
    Recieve<PacketInternCentralMailbox>(&mController);
  }
  void StartWithSize(int width, int height) {
    WriteFile("client.ini", "[DISPLAY]\nWidth=" + std::to_string(width) + "\nHeight=" + std::to_string(height) + "\n");
    Start();
  }

  // The packet arrives from the controller.
  template <typename T, typename... Args>
  T& Recieve(Args... args) {
    auto* packet = new T(args...);
    EXPECT_TRUE(mMailbox.Put(packet));
    mDisplay->RunPass();
    return *packet;
  }
  void Deliver(Packet* packet) {
    ASSERT_TRUE(mMailbox.Put(packet));
    mDisplay->RunPass();
  }

  static void PushKey(SDLKey symbol, char character = '\0') {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = symbol;
    event.key.keysym.unicode = static_cast<Uint8>(character);
    ASSERT_EQ(SDL_PushEvent(&event), 0);
  }
  static void PushMouse(Uint8 type, int x, int y) {
    SDL_Event event{};
    event.type = type;
    event.button.button = SDL_BUTTON_LEFT;
    event.button.x = static_cast<Uint16>(x);
    event.button.y = static_cast<Uint16>(y);
    ASSERT_EQ(SDL_PushEvent(&event), 0);
  }
  // Each runs a frame.
  void Press(SDLKey symbol) {
    PushKey(symbol);
    mDisplay->RunPass();
  }
  void Type(const std::string& text) {
    for (const char character : text) PushKey(static_cast<SDLKey>(character), character);
    mDisplay->RunPass();
  }
  void Click(int x, int y) {
    PushMouse(SDL_MOUSEBUTTONDOWN, x, y);
    PushMouse(SDL_MOUSEBUTTONUP, x, y);
    mDisplay->RunPass();
  }

  // The codes of what was sent to the controller since the last call.
  std::vector<PacketCode> Sent() {
    std::vector<PacketCode> codes;
    while (const std::unique_ptr<Packet> packet{mController.Get()}) codes.push_back(packet->mEnmCode);
    return codes;
  }

  // The control at the end of a way of ids that starts at the screen.
  template <typename T>
  T& Find(std::initializer_list<std::uint32_t> way) {
    ControlBasic* control = mDisplay->GetScreen();
    for (const std::uint32_t id : way) control = control->GetSubControl(id);
    return dynamic_cast<T&>(*control);
  }
  std::string TextOf(std::initializer_list<std::uint32_t> way) { return Find<ControlLabel>(way).GetText(); }

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
  std::unique_ptr<SteppedDisplay> mDisplay;
};

}  // namespace tolva::test
