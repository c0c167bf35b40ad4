#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <utility>

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

// Builds a screen's controls from its table, places them, finds them by id, and owns the pictures that they show. The
// controls themselves belong to the screen.
class ScreenComponents {
 public:
  explicit ScreenComponents(Archive& archive) : mArchive(archive) {}

  // Creates the table's controls in `screen`, which gets their events. The table must outlive this object.
  void Build(ControlBasic& screen, std::span<const Component> table);
  // Places every component for the present size of the screen.
  void PlaceAll();

  // The component with this id, which must be in the table and a T.
  template <typename T>
  T& Get(std::uint32_t id) const {
    return dynamic_cast<T&>(*mControls.at(id));
  }

  // Takes a picture that somebody else loaded.
  void AddPicture(PictureId id, SurfacePtr picture) { mPictures[id] = std::move(picture); }
  // The picture, which is loaded on the first call; null when the archive cannot give it.
  SDL_Surface* GetPicture(PictureId id);
  // The size of the picture; 0 by 0 when the archive cannot give it.
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
