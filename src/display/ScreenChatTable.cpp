#include "display/ScreenChatTable.h"

#include "display/ScreenChat.h"

namespace tolva {
namespace {

using Id = ScreenChat::ComponentId;
using Kind = ComponentKind;
using Around = Surroundings;
using PlaceRule = Rect (*)(const Around&);

// From top to bottom: the server's message; a strip of three parts; the chat, with a column of windows to its right;
// the input line. Each rule starts where its neighbor's ends, so that every pixel is covered.
constexpr int kMessageHeight = 40;
constexpr int kIslandWidth = 300;
constexpr int kStripHeight = 60;
constexpr int kColumnWidth = 150;
constexpr int kInputHeight = 45;
constexpr int kMainTop = kMessageHeight + kStripHeight;
constexpr int kStatusTop = kMainTop + 75;
constexpr int kUsersTop = kStatusTop + 95;

constexpr int IslandX(const Around& around) { return (around.holder.width - kIslandWidth) / 2; }
constexpr int ColumnX(const Around& around) { return around.holder.width - kColumnWidth; }
constexpr int InputY(const Around& around) { return around.holder.height - kInputHeight; }
constexpr int ChatUsersHeight(const Around& around) { return (InputY(around) - kUsersTop) / 2; }

constexpr Rect PlaceServerMessage(const Around& around) { return {0, 0, around.holder.width, kMessageHeight}; }
constexpr Rect PlaceIsland(const Around& around) {
  return {IslandX(around), kMessageHeight, kIslandWidth, kStripHeight};
}
constexpr Rect PlaceLeftPanel(const Around& around) { return {0, kMessageHeight, IslandX(around), kStripHeight}; }
constexpr Rect PlaceButtonBar(const Around& around) {
  const int x = IslandX(around) + kIslandWidth;
  return {x, kMessageHeight, around.holder.width - x, kStripHeight};
}
constexpr Rect PlaceInput(const Around& around) { return {0, InputY(around), around.holder.width, kInputHeight}; }
constexpr Rect PlaceVersions(const Around& around) {
  return {ColumnX(around), kMainTop, kColumnWidth, kStatusTop - kMainTop};
}
constexpr Rect PlaceStatus(const Around& around) {
  return {ColumnX(around), kStatusTop, kColumnWidth, kUsersTop - kStatusTop};
}
constexpr Rect PlaceChatUsers(const Around& around) {
  return {ColumnX(around), kUsersTop, kColumnWidth, ChatUsersHeight(around)};
}
constexpr Rect PlaceGameUsers(const Around& around) {
  const int y = kUsersTop + ChatUsersHeight(around);
  return {ColumnX(around), y, kColumnWidth, InputY(around) - y};
}
constexpr Rect PlaceChat(const Around& around) { return {0, kMainTop, ColumnX(around), InputY(around) - kMainTop}; }
// Inside a window, covering the lower edge of its caption bar.
constexpr Rect PlaceContent(const Around& around) { return {0, 18, around.holder.width, around.holder.height - 18}; }
constexpr Rect PlaceInputBox(const Around& around) { return {5, 20, around.holder.width - 10, 23}; }

constexpr int kButtonWidth = 80;
constexpr int kButtonGap = 7;

// Buttons are counted from the bar's right end.
template <int Column, int Y>
constexpr Rect PlaceButton(const Around& around) {
  return {around.holder.width - Column * (kButtonWidth + kButtonGap), Y, kButtonWidth, 20};
}

constexpr Component Window(Id id, const char* caption, PlaceRule place, PictureId picture = kNoPicture) {
  return {.id = id, .kind = Kind::Window, .text = caption, .place = place, .framed = true, .picture = picture};
}

constexpr Component Label(Id id, Id holder, const char* text, PlaceRule place, Rgb color = kCream,
                          ControlLabel::Alignment alignment = ControlLabel::kMiddleLeft) {
  return {.id = id,
          .kind = Kind::Label,
          .holder = holder,
          .text = text,
          .place = place,
          .textColor = color,
          .background = kTransparentColor,
          .alignment = alignment};
}

constexpr Component Value(Id id, Id holder, PlaceRule place) {
  return Label(id, holder, "", place, kWhite, ControlLabel::kMiddleRight);
}

constexpr Component Heading(Id id, const char* text, PlaceRule place) {
  Component row = Label(id, Id::kOptionsWindow, text, place);
  row.underlined = true;
  return row;
}

constexpr Component Panel(Id id, PlaceRule place, PictureId picture) {
  return {.id = id, .kind = Kind::Panel, .place = place, .framed = true, .picture = picture};
}

constexpr Component Button(Id id, const char* text, PlaceRule place) {
  return {.id = id,
          .kind = Kind::Button,
          .holder = Id::kButtonBar,
          .text = text,
          .place = place,
          .framed = true,
          .textColor = kBlack,
          .background = kWhite,
          .picture = kPictureButton,
          .pressedPicture = kPictureButtonPressed,
          .alignment = ControlLabel::kMiddleCenter};
}

constexpr Component HiddenButton(Id id, const char* text) {
  return {.id = id, .kind = Kind::Button, .holder = Id::kButtonBar, .text = text, .framed = true, .hidden = true};
}

constexpr Component Toggle(Id id, PlaceRule place) {
  return {.id = id,
          .kind = Kind::Toggle,
          .holder = Id::kOptionsWindow,
          .place = place,
          .framed = true,
          .pressedPicture = kPictureTogglePressed};
}

constexpr Component List(Id id, Kind kind, Id holder, Rgb color, PictureId picture) {
  return {.id = id,
          .kind = kind,
          .holder = holder,
          .place = PlaceContent,
          .framed = true,
          .textColor = color,
          .background = kTransparentColor,
          .picture = picture};
}

constexpr Component InputBox() {
  return {.id = Id::kChatInputBox,
          .kind = Kind::TextBox,
          .holder = Id::kInputWindow,
          .place = PlaceInputBox,
          .textColor = kCream};
}

constexpr Component OptionsWindow() {
  Component row = Window(Id::kOptionsWindow, " Options", CenteredPlace<300, 210>, kPicturePanel);
  row.kind = Kind::FreeWindow;
  row.hidden = true;
  return row;
}

constexpr Component kTable[] = {
    Window(Id::kChatUsersWindow, "", PlaceChatUsers),
    List(Id::kChatUsersList, Kind::ListBox, Id::kChatUsersWindow, kCream, kPicturePanel),

    Window(Id::kGameUsersWindow, "", PlaceGameUsers),
    List(Id::kGameUsersList, Kind::ListBox, Id::kGameUsersWindow, kCream, kPicturePanel),

    Window(Id::kVersionsWindow, " Versions", PlaceVersions, kPicturePanel),
    Label(Id::kServerLabel, Id::kVersionsWindow, "Server", FixedPlace<2, 25, 73, 20>),
    Value(Id::kServerVersionLabel, Id::kVersionsWindow, FixedPlace<75, 25, 73, 20>),
    Label(Id::kClientLabel, Id::kVersionsWindow, "Client", FixedPlace<2, 45, 73, 20>),
    Value(Id::kClientVersionLabel, Id::kVersionsWindow, FixedPlace<75, 45, 73, 20>),

    Window(Id::kInputWindow, " Input", PlaceInput),
    InputBox(),

    Window(Id::kStatusWindow, " Status", PlaceStatus, kPicturePanel),
    Label(Id::kConnectionLabel, Id::kStatusWindow, "Connected", FixedPlace<2, 25, 146, 20>, kCream,
          ControlLabel::kMiddleCenter),
    Label(Id::kPingLabel, Id::kStatusWindow, "Ping", FixedPlace<2, 45, 73, 20>),
    Value(Id::kPingValueLabel, Id::kStatusWindow, FixedPlace<75, 45, 73, 20>),
    Label(Id::kFrameRateLabel, Id::kStatusWindow, "FPS", FixedPlace<2, 65, 73, 20>),
    Value(Id::kFrameRateValueLabel, Id::kStatusWindow, FixedPlace<75, 65, 73, 20>),

    Window(Id::kChatWindow, " Chat", PlaceChat),
    List(Id::kChatBox, Kind::ChatBox, Id::kChatWindow, kWhite, kPictureChatBackground),

    Window(Id::kServerMessageWindow, " Server message", PlaceServerMessage),
    Panel(Id::kIsland, PlaceIsland, kNoPicture),
    Panel(Id::kLeftPanel, PlaceLeftPanel, kPicturePanel),

    Panel(Id::kButtonBar, PlaceButtonBar, kPicturePanel),
    Button(Id::kQuitButton, "Quit", PlaceButton<1, 7>),
    Button(Id::kEnterGameButton, "Enter Game", PlaceButton<2, 7>),
    HiddenButton(Id::kHelpButton, "Help"),
    Button(Id::kOptionsButton, "Options", PlaceButton<1, 33>),
    HiddenButton(Id::kCreditsButton, "Credits"),

    OptionsWindow(),
    Heading(Id::kResolutionHeading, "Resolution", FixedPlace<10, 30, 140, 20>),
    Toggle(Id::kFullScreenToggle, FixedPlace<10, 70, 16, 16>),
    Label(Id::kFullScreenLabel, Id::kOptionsWindow, "Fullscreen", FixedPlace<36, 70, 114, 20>, kWhite),
    Toggle(Id::kSmallToggle, FixedPlace<10, 96, 16, 16>),
    Label(Id::kSmallLabel, Id::kOptionsWindow, "800 x 600", FixedPlace<36, 96, 114, 20>, kWhite),
    Toggle(Id::kMediumToggle, FixedPlace<10, 122, 16, 16>),
    Label(Id::kMediumLabel, Id::kOptionsWindow, "1024 x 768", FixedPlace<36, 122, 114, 20>, kWhite),
    Toggle(Id::kLargeToggle, FixedPlace<10, 148, 16, 16>),
    Label(Id::kLargeLabel, Id::kOptionsWindow, "1280 x 1024", FixedPlace<36, 148, 114, 20>, kWhite),
    Heading(Id::kSoundHeading, "Sound", FixedPlace<160, 30, 140, 20>),
    Toggle(Id::kMusicToggle, FixedPlace<160, 70, 16, 16>),
    Label(Id::kMusicLabel, Id::kOptionsWindow, "Play music", FixedPlace<186, 70, 114, 20>, kWhite),
    // Nearly as wide as the window, because the text is.
    Label(Id::kRestartNote, Id::kOptionsWindow, "(Change of resolution requires restart of client)",
          FixedPlace<2, 179, 296, 16>, kCream, ControlLabel::kMiddleCenter),
};

}  // namespace

std::span<const Component> GetScreenChatTable() { return kTable; }

}  // namespace tolva
