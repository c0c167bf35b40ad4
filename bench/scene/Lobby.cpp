#include "scene/Lobby.h"

#include <iterator>
#include <stdexcept>

#include "archive/ArchiveFormat.h"
#include "controls/ControlChatBox.h"
#include "controls/ControlTextBox.h"
#include "media/Archive.h"

namespace tolva::bench {
namespace {

constexpr char kFontFile[] = "Data.tmp";
constexpr int kFontSize = 12;

constexpr const char* kNames[] = {"Anna", "Server", "Bartholomew", "Jo", "Guest 17"};
constexpr const char* kTexts[] = {"The boat to the north leaves at dusk", "Good evening!",
                                  "I wait for you at the mill, bring the long rope and both lamps",
                                  "Has anyone fed the ducks today?"};

}  // namespace

Lobby::Lobby(SDL_Surface& window, std::size_t messages) : mFontKeeper(0, &window, nullptr, nullptr) {
  if (!Archive("Graphics", &mLog).Extract(archive_format::kFontId, kFontFile)) throw std::runtime_error("no font");
  ControlTextBasic::LoadFont(kFontFile, kFontSize);
  mScreen = std::make_unique<ScreenChat>(0, &window, nullptr, nullptr, &mLog);
  for (std::size_t i = 0; i < messages; ++i) GetChatBox().AddEntry(GetMessage(i).name, GetMessage(i).text);
}

ControlChatBox& Lobby::GetChatBox() {
  return dynamic_cast<ControlChatBox&>(Get(ScreenChat::kChatWindow, ScreenChat::kChatBox));
}

ControlTextBox& Lobby::GetInputBox() {
  return dynamic_cast<ControlTextBox&>(Get(ScreenChat::kInputWindow, ScreenChat::kChatInputBox));
}

ControlBasic& Lobby::Get(ScreenChat::ComponentId window, ScreenChat::ComponentId component) {
  return *mScreen->GetSubControl(window)->GetSubControl(component);
}

Lobby::Message Lobby::GetMessage(std::size_t number) {
  return {kNames[number % std::size(kNames)], kTexts[number % std::size(kTexts)]};
}

}  // namespace tolva::bench
