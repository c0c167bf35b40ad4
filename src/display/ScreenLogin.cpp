#include "display/ScreenLogin.h"

#include <string>

#include "controls/ControlLabel.h"
#include "controls/ControlTextBox.h"
#include "foundation/Guard.h"
#include "protocol/PacketDispatch.h"

namespace tolva {
namespace {

constexpr int kNameLength = 16;

constexpr Rect PlaceStatus(const Surroundings& around) {
  return {0, around.holder.height - 40, around.holder.width, 20};
}

using Kind = ComponentKind;

constexpr Component kTable[] = {
    {.id = ScreenLogin::kTitle,
     .kind = Kind::Panel,
     .place = PlaceTitle,
     .picture = kPictureTitle,
     .measured = kPictureTitle},
    {.id = ScreenLogin::kStatusLabel,
     .kind = Kind::Label,
     .place = PlaceStatus,
     .alignment = ControlLabel::kMiddleCenter},
    {.id = ScreenLogin::kLoginWindow,
     .kind = Kind::Window,
     .text = " Login",
     .place = CenteredPlace<250, 150>,
     .framed = true,
     .picture = kPicturePanel},
    {.id = ScreenLogin::kNameLabel,
     .kind = Kind::Label,
     .holder = ScreenLogin::kLoginWindow,
     .text = "Name:",
     .place = FixedPlace<20, 50, 80, 20>,
     .background = kTransparentColor},
    {.id = ScreenLogin::kPasswordLabel,
     .kind = Kind::Label,
     .holder = ScreenLogin::kLoginWindow,
     .text = "Password:",
     .place = FixedPlace<20, 90, 80, 20>,
     .background = kTransparentColor},
    {.id = ScreenLogin::kNameBox,
     .kind = Kind::TextBox,
     .holder = ScreenLogin::kLoginWindow,
     .place = FixedPlace<100, 50, 130, 20>,
     .framed = true,
     .textColor = kCream,
     .maxLength = kNameLength},
    {.id = ScreenLogin::kPasswordBox,
     .kind = Kind::Password,
     .holder = ScreenLogin::kLoginWindow,
     .place = FixedPlace<100, 90, 130, 20>,
     .framed = true,
     .textColor = kCream,
     .maxLength = kNameLength},
};

}  // namespace

ScreenLogin::ScreenLogin(std::uint32_t id, SDL_Surface* videoSurface, void* context, ControlCallback callback,
                         InfoHandler* logger)
    : Screen(id, videoSurface, context, callback, logger) {
  Guard("ScreenLogin", "ScreenLogin", [&] { ScreenLogin::InitializeComponents(); });
}

ScreenLogin::~ScreenLogin() { ScreenLogin::TerminateComponents(); }

void ScreenLogin::InitializeComponents() {
  Guard("ScreenLogin", "InitializeComponents", [&] {
    BuildAroundPicture(kTable, kTitle);
    mComponents.Get<ControlTextBox>(kNameBox).SetActive(true);
  });
}

void ScreenLogin::TerminateComponents() { mComponents.FreePictures(); }

void ScreenLogin::HandleSdlEvent(SDL_Event event) {
  Guard("ScreenLogin", "HandleSdlEvent", [&] {
    ControlBasic::HandleSdlEvent(event);
    if (IsEscape(event)) QueuePacket(std::make_unique<PacketQuit>());
  });
}

void ScreenLogin::EventHandler(ControlEvent event) {
  Guard("ScreenLogin", "EventHandler", [&] {
    switch (event.sender->GetId()) {
      case kNameBox:
        return HandleTextBoxName(event);
      case kPasswordBox:
        return HandleTextBoxPassword(event);
    }
  });
}

void ScreenLogin::HandleTextBoxName(const ControlEvent& event) {
  Guard("ScreenLogin", "HandleTextBoxName", [&] {
    if (event.code == ControlTextBox::kEventEnter || event.code == ControlTextBox::kEventTab) FocusOn(kPasswordBox);
  });
}

void ScreenLogin::HandleTextBoxPassword(const ControlEvent& event) {
  Guard("ScreenLogin", "HandleTextBoxPassword", [&] {
    if (event.code == ControlTextBox::kEventEnter) SendLoginRequest();
    if (event.code == ControlTextBox::kEventTab) FocusOn(kNameBox);
  });
}

void ScreenLogin::SendLoginRequest() {
  ShowStatus("Connecting");
  QueuePacket(std::make_unique<PacketLoginRequest>(mComponents.Get<ControlTextBox>(kNameBox).GetText(),
                                                   mComponents.Get<ControlTextBox>(kPasswordBox).GetText()));
}

void ScreenLogin::HandlePacket(Packet* packet) {
  const std::unique_ptr<Packet> owned(packet);
  Guard("ScreenLogin", "HandlePacket", [&] {
    Dispatch(
        *packet, [&](const PacketInternConnectionLost&) { ShowFailure("Could not establish connection"); },
        [&](const PacketLoginDeny& denial) {
          ShowFailure((std::string("Login denied: ") + denial.mStrReason).c_str());
        });
  });
}

void ScreenLogin::ShowFailure(const char* text) {
  ShowStatus(text);
  FocusOn(kNameBox);
}

// A centered text that is too wide loses its beginning, which matters most.
void ScreenLogin::ShowStatus(const char* text) {
  auto& label = mComponents.Get<ControlLabel>(kStatusLabel);
  label.SetText(text);
  const bool fits = label.GetTextWidth() <= label.GetWidth();
  label.SetAlignment(fits ? ControlLabel::kMiddleCenter : ControlLabel::kMiddleLeft);
}

void ScreenLogin::FocusOn(ComponentId textBox) {
  SetActive(false);
  mComponents.Get<ControlTextBox>(textBox).SetActive(true);
}

}  // namespace tolva
