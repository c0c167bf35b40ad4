#include <cstddef>
#include <string>
#include <vector>

#include "Rows.h"
#include "controls/ControlChatBox.h"
#include "controls/ControlLabel.h"
#include "controls/ControlScrollbar.h"
#include "controls/ControlTextBox.h"
#include "harness/Table.h"
#include "media/Archive.h"
#include "plain/ChatBox.h"
#include "plain/Copy.h"
#include "plain/TextBox.h"
#include "scene/Lobby.h"
#include "scene/Scene.h"
#include "sdl/Text.h"

namespace tolva::bench {
namespace {

constexpr Size kSmall{800, 600};
constexpr Size kLarge{1280, 1024};
constexpr std::uint32_t kScrollbar = 0;
constexpr std::uint32_t kFirstLabel = 1000;

std::string At(const SDL_Surface& window) { return ", " + std::to_string(window.w) + "x" + std::to_string(window.h); }

// Calls `scroll` with one line and the next in turn.
template <typename Scroll>
Sample ScrollByOne(Scroll&& scroll) {
  return PerCall([scroll, line = 10]() mutable { scroll(line ^= 1); });
}

// The least that new rows cost: each text that the box shows is rendered once, onto a filled surface.
class RenderedRows {
 public:
  explicit RenderedRows(ControlChatBox& box) : mTarget(*box.GetBaseSurface()) {
    for (std::uint32_t id = kFirstLabel; ControlBasic* label = box.GetSubControl(id); ++id) {
      mTexts.push_back({dynamic_cast<ControlLabel&>(*label).GetText(), label->GetX(), label->GetY()});
    }
  }

  void Render() {
    SDL_FillRect(&mTarget, nullptr, 0);
    for (const Placed& placed : mTexts) {
      const SurfacePtr picture = RenderText(ControlTextBasic::GetFont(), placed.text.c_str(), kWhite);
      if (picture != nullptr) plain::CopyWhole(picture.get(), &mTarget, placed.x, placed.y);
    }
  }

 private:
  struct Placed {
    std::string text;
    int x;
    int y;
  };

  SDL_Surface& mTarget;
  std::vector<Placed> mTexts;
};

void AddChatRows(Table& table, Size size) {
  SDL_Surface& window = SetWindow(size);
  Lobby lobby(window);
  ControlChatBox& box = lobby.GetChatBox();
  RenderedRows rendered(box);
  InfoHandler log;
  Archive archive("Graphics", &log);
  const SurfacePtr background = archive.LoadImage(kPictureChatBackground);
  plain::ChatBox plainBox(0, &window, nullptr, nullptr);
  plainBox.SetBackgroundColor(kTransparentColor);
  plainBox.SetBackgroundSurface(background.get());
  plainBox.SetBorderSurface(box.GetBorderSurface());
  plainBox.SetSize(box.GetWidth(), box.GetHeight());

  const auto say = [](auto& chat) {
    return PerCall([&chat, number = std::size_t{0}]() mutable {
      const Lobby::Message message = Lobby::GetMessage(++number);
      chat.AddEntry(message.name, message.text);
    });
  };
  const Sample yard = PerCall([&] { rendered.Render(); });
  const char* const yardName = "render the rows once";
  table.Run({"A message at the end of a full chat" + At(window), say(box), say(plainBox), yardName, yard, 1.5});
  auto& scrollbar = dynamic_cast<ControlScrollbar&>(*box.GetSubControl(kScrollbar));
  table.Run({"The chat scrolled by one line" + At(window), ScrollByOne([&](int line) { scrollbar.SetValue(line); }),
             ScrollByOne([&](int line) { plainBox.ScrollTo(line); }), yardName, yard, 1.5});
}

void AddClickRow(Table& table) {
  SDL_Surface& window = SetWindow(kSmall);
  Lobby lobby(window);
  ControlTextBox& box = lobby.GetInputBox();
  const std::string wide(ControlLabel::kTextCapacity - 1, 'W');
  box.SetText(wide.c_str());
  plain::TextBox plainBox(0, &window, nullptr, nullptr);
  plainBox.SetSize(box.GetWidth(), box.GetHeight());
  plainBox.SetEntered(wide);
  // A press anywhere takes the focus from the box before it gives it back.
  const auto click = [](auto& clicked) {
    return PerCall([&] {
      clicked.SetActive(false);
      clicked.SetActive(true);
    });
  };
  table.Run({"A click into a box of 1,023 wide letters", click(box), click(plainBox), "plain way", {}, 1.0 / 30});
}

// The copies of which a frame of controls consists.
class PlainCopies {
 public:
  explicit PlainCopies(ControlBasic& root) { AddBelow(root); }

  void Blit() {
    for (const ControlBasic* control : mControls) {
      plain::CopyWhole(control->GetBaseSurface(), control->GetParentSurface(), control->GetX(), control->GetY());
    }
  }

 private:
  void AddBelow(ControlBasic& holder) {
    for (std::uint32_t id = 0; id < 2 * kFirstLabel; ++id) {
      ControlBasic* control = holder.GetSubControl(id);
      if (control == nullptr || !control->IsVisible()) continue;
      AddBelow(*control);
      mControls.push_back(control);
    }
  }

  std::vector<const ControlBasic*> mControls;
};

void AddLobbyRow(Table& table, Size size, double aim) {
  SDL_Surface& window = SetWindow(size);
  Lobby lobby(window);
  ScreenChat& screen = lobby.GetScreen();
  PlainCopies plain(screen);
  CopyRing ring(static_cast<std::size_t>(window.pitch) * static_cast<std::size_t>(window.h));
  table.Run({"A frame of the lobby" + At(window), PerCall([&] { screen.Blit(); }), PerCall([&] { plain.Blit(); }),
             "memcpy of the frame", PerCall([&] { ring(); }), aim});
}

}  // namespace

void AddControlRows(Table& table) {
  AddChatRows(table, kSmall);
  AddChatRows(table, kLarge);
  AddClickRow(table);
  AddLobbyRow(table, kSmall, 6);
  AddLobbyRow(table, kLarge, 6);
}

}  // namespace tolva::bench
