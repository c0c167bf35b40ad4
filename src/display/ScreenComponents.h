#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>

#include <SDL.h>

#include "controls/ControlBasic.h"
#include "display/Component.h"
#include "display/PictureIds.h"
#include "media/Archive.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

class ControlButton;
class ControlTextBox;
class ControlWindow;

// Builds a screen's controls from its table, places them, finds them again by id, and owns the pictures they show. The
// controls themselves belong to the screen's control tree.
class ScreenComponents {
 public:
  explicit ScreenComponents(Archive& archive) : mArchive(archive) {}

  // Creates the table's controls inside `screen`, which gets their reports. The table must outlive this object.
  void Build(ControlBasic& screen, std::span<const Component> table);
  // Places every component for the screen's present size.
  void PlaceAll();

  // The component of this id, which must be a T of the table.
  template <typename T>
  T& Get(std::uint32_t id) const {
    return dynamic_cast<T&>(*mControls.at(id));
  }

  // The picture, loaded when first asked for; null when the archive cannot give it.
  SDL_Surface* GetPicture(PictureId id);
  // The picture's size, 0 by 0 without it.
  Size GetPictureSize(PictureId id);
  // Frees all pictures; the controls must not be drawn afterwards.
  void FreePictures() { mPictures.clear(); }

 private:
  ControlBasic* Create(const Component& row, ControlBasic& holder);
  template <typename Control>
  std::unique_ptr<Control> New(const Component& row, ControlBasic& holder);
  template <typename Text>
  Text* StyleText(std::unique_ptr<Text> text, const Component& row);
  ControlBasic* StyleTextBox(std::unique_ptr<ControlTextBox> box, const Component& row);
  ControlBasic* StyleButton(std::unique_ptr<ControlButton> button, const Component& row);
  ControlBasic* StyleWindow(std::unique_ptr<ControlWindow> window, const Component& row);
  template <typename List>
  ControlBasic* StyleList(std::unique_ptr<List> list, const Component& row);
  ControlBasic& FindHolder(const Component& row) const;

  Archive& mArchive;
  ControlBasic* mScreen = nullptr;
  std::span<const Component> mTable;
  std::map<std::uint32_t, ControlBasic*> mControls;
  std::map<PictureId, SurfacePtr> mPictures;
};

}  // namespace tolva
