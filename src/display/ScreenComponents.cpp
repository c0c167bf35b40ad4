#include "display/ScreenComponents.h"

#include "controls/ControlButton.h"
#include "controls/ControlChatBox.h"
#include "controls/ControlLabel.h"
#include "controls/ControlListBox.h"
#include "controls/ControlTextBox.h"
#include "controls/ControlWindow.h"
#include "sdl/Surface.h"

namespace tolva {

SDL_Surface* ScreenComponents::GetPicture(PictureId id) {
  if (id == kNoPicture) return nullptr;
  const auto [entry, isNew] = mPictures.try_emplace(id);
  if (isNew) entry->second = mArchive.LoadImage(id);
  return entry->second.get();
}

Size ScreenComponents::GetPictureSize(PictureId id) {
  const SDL_Surface* picture = GetPicture(id);
  return picture == nullptr ? Size{} : GetSize(*picture);
}

void ScreenComponents::Build(ControlBasic& screen, std::span<const Component> table) {
  mScreen = &screen;
  mTable = table;
  for (const Component& row : table) {
    ControlBasic& holder = FindHolder(row);
    ControlBasic* control = Create(row, holder);
    control->SetVisible(!row.hidden);
    holder.AddSubControl(control);
    mControls[row.id] = control;
  }
}

void ScreenComponents::PlaceAll() {
  for (const Component& row : mTable) {
    if (row.place == nullptr) continue;
    const ControlBasic& holder = FindHolder(row);
    const Rect place =
        row.place({.holder = {holder.GetWidth(), holder.GetHeight()}, .picture = GetPictureSize(row.measured)});
    mControls.at(row.id)->SetPosition(place.x, place.y, place.width, place.height);
  }
}

ControlBasic& ScreenComponents::FindHolder(const Component& row) const {
  return row.holder == kHeldByScreen ? *mScreen : *mControls.at(row.holder);
}

ControlBasic* ScreenComponents::Create(const Component& row, ControlBasic& holder) {
  switch (row.kind) {
    case ComponentKind::Label:
      return StyleText(New<ControlLabel>(row, holder), row);
    case ComponentKind::TextBox:
    case ComponentKind::Password:
      return StyleTextBox(New<ControlTextBox>(row, holder), row);
    case ComponentKind::Button:
    case ComponentKind::Toggle:
      return StyleButton(New<ControlButton>(row, holder), row);
    case ComponentKind::Window:
    case ComponentKind::FreeWindow:
      return StyleWindow(New<ControlWindow>(row, holder), row);
    case ComponentKind::ListBox:
      return StyleList(New<ControlListBox>(row, holder), row);
    case ComponentKind::ChatBox:
      return StyleList(New<ControlChatBox>(row, holder), row);
    case ComponentKind::Panel:
      break;
  }
  return New<ControlBasic>(row, holder).release();
}

template <typename Control>
std::unique_ptr<Control> ScreenComponents::New(const Component& row, ControlBasic& holder) {
  auto control = std::make_unique<Control>(row.id, holder.GetBaseSurface(), mScreen, ControlBasic::CallbackWrapper);
  if (row.framed) control->SetBorderSurface(GetPicture(kPictureFrame));
  control->SetBackgroundColor(row.background.r, row.background.g, row.background.b);
  control->SetBackgroundSurface(GetPicture(row.picture));
  control->SetKeepOrder(row.kind != ComponentKind::FreeWindow);
  return control;
}

template <typename Text>
Text* ScreenComponents::StyleText(std::unique_ptr<Text> text, const Component& row) {
  text->SetForegroundColor(row.textColor.r, row.textColor.g, row.textColor.b);
  text->SetUnderline(row.underlined);
  text->SetText(row.text);
  text->SetAlignment(row.alignment);
  return text.release();
}

ControlBasic* ScreenComponents::StyleTextBox(std::unique_ptr<ControlTextBox> box, const Component& row) {
  box->SetMaxLength(row.maxLength);
  box->SetPassword(row.kind == ComponentKind::Password);
  return StyleText(std::move(box), row);
}

ControlBasic* ScreenComponents::StyleButton(std::unique_ptr<ControlButton> button, const Component& row) {
  button->SetToggle(row.kind == ComponentKind::Toggle);
  button->SetSurfaceUnpressed(GetPicture(row.picture));
  button->SetSurfacePressed(GetPicture(row.pressedPicture));
  if (row.kind == ComponentKind::Toggle) {
    button->SetBackgroundColorPressed(row.background.r, row.background.g, row.background.b);
  }
  return StyleText(std::move(button), row);
}

ControlBasic* ScreenComponents::StyleWindow(std::unique_ptr<ControlWindow> window, const Component& row) {
  const bool isFree = row.kind == ComponentKind::FreeWindow;
  window->SetCaption(row.text);
  window->SetCaptionColor(0, 0, 0);
  window->SetCaptionBackgroundSurface(GetPicture(kPictureCaptionBar));
  window->SetMovable(isFree);
  window->SetControlBox(isFree);
  if (isFree) window->SetCloseButtonSurfaces(GetPicture(kPictureClosePressed), GetPicture(kPictureClose));
  return window.release();
}

template <typename List>
ControlBasic* ScreenComponents::StyleList(std::unique_ptr<List> list, const Component& row) {
  list->SetForegroundColor(row.textColor.r, row.textColor.g, row.textColor.b);
  list->SetIncrementButtonSurfaces(GetPicture(kPictureIncrementPressed), GetPicture(kPictureIncrement));
  list->SetDecrementButtonSurfaces(GetPicture(kPictureDecrementPressed), GetPicture(kPictureDecrement));
  list->SetScrollbarBackgroundSurface(GetPicture(kPictureScrollbarTrack));
  list->SetScrollbarValueBackgroundColor(227, 216, 154);
  return list.release();
}

}  // namespace tolva
