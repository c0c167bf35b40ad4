#pragma once

#include <cstdint>
#include <list>
#include <memory>

#include <SDL.h>

#include "controls/ControlEvent.h"
#include "controls/Frame.h"
#include "sdl/Rect.h"
#include "sdl/Rgb.h"
#include "sdl/SurfacePtr.h"

namespace tolva {

// The root of the toolkit: a rectangle with a surface of its own, a background, an optional frame, and an ordered list
// of sub-controls that it owns. `Refresh` renders a control's own look into its surface when a property changes; `Blit`
// composes the tree once per frame. For the display's thread only, with a video mode set. Pictures are borrowed:
// whoever loaded them frees them, after the controls. Operations throw an `Error*` when SDL fails.
class ControlBasic {
 public:
  // `parentSurface` is what this control is blitted onto; `context` goes with every report to `callback`, which may be
  // null. With `CallbackWrapper` as callback, `context` must be a ControlBasic* (or null).
  ControlBasic(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);
  virtual ~ControlBasic() = default;

  ControlBasic(const ControlBasic&) = delete;
  ControlBasic& operator=(const ControlBasic&) = delete;

  // ---- Events and frames: the virtual operations, overridden along the class chain ----

  // Routes an event to the sub-control that has the focus, or to `SdlEventHandler`. A press chooses the focus anew and
  // arrives in the receiver's own coordinates; everything else travels unchanged. A release goes to whoever got the
  // press and leaves the focus alone; without that press, or when its receiver is gone, nobody hears of it. The mouse
  // wheel has no part in all this: it goes to `TurnWheel`.
  virtual void HandleSdlEvent(SDL_Event event);
  // Composes this control and its sub-controls onto the parent surface.
  virtual void Blit();
  // A picture of 32 by 32 pixels from which the two pixels wide frame is cut, or null for no frame.
  virtual void SetBorderSurface(SDL_Surface* surface);
  // In pixels, kept within 0..65535. A change rebuilds the surface; one wider than 16383 cannot be built.
  virtual void SetWidth(int width);
  virtual void SetHeight(int height);
  virtual void SetBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  // Puts this control on the focus path, or takes it and everything below it off.
  virtual void SetActive(bool active);
  // Renders the own look anew and, if `recursive`, that of everything below.
  virtual void Refresh(bool recursive);
  // The control's own reaction to an event that ended its way here.
  virtual void SdlEventHandler(SDL_Event event);
  // The reaction to the report of a sub-control that was created with `CallbackWrapper`.
  virtual void EventHandler(ControlEvent event);
  // The wheel turned by `notches`, positive when down, with the pointer at (x, y) in the parent's coordinates, inside
  // this control. Scrolls what is in front there; false when that has nothing to scroll.
  virtual bool TurnWheel(int x, int y, int notches);

  // ---- Geometry, in pixels of the parent ----

  // Positions are kept within -32768..32767 and cost no rendering.
  void SetX(int x);
  void SetY(int y);
  void SetPosition(int x, int y);
  // Rebuilds the surface once, also when the size stays the same.
  void SetSize(int width, int height);
  // Rebuilds the surface only when the size changes.
  void SetPosition(int x, int y, int width, int height);
  int GetX() const { return mRect.x; }
  int GetY() const { return mRect.y; }
  int GetWidth() const { return mRect.width; }
  int GetHeight() const { return mRect.height; }

  // ---- Look ----

  // A picture that is tiled over the surface instead of the background colour, or null.
  void SetBackgroundSurface(SDL_Surface* surface);
  Rgb GetBackgroundColor() const { return mBackgroundColor; }
  SDL_Surface* GetBorderSurface() const { return mBorderSurface; }
  // Null only after a surface could not be built.
  SDL_Surface* GetBaseSurface() const { return mBaseSurface.get(); }
  SDL_Surface* GetParentSurface() const { return mParentSurface; }
  void SetParentSurface(SDL_Surface* surface);
  // Lets the sub-controls draw straight onto the parent surface; this control then shows nothing of its own.
  void SetOverrideBaseSurface(bool overrideBaseSurface);
  // Fills the surface with the background colour at the start of every frame.
  void SetClearOnBlit(bool clearOnBlit) { mClearOnBlit = clearOnBlit; }
  void SetVisible(bool visible) { mVisible = visible; }
  bool IsVisible() const { return mVisible; }
  // While false, `Refresh` does nothing.
  void SetRefreshEnabled(bool enabled) { mRefreshEnabled = enabled; }
  bool IsRefreshEnabled() const { return mRefreshEnabled; }

  // ---- Tree ----

  // Takes ownership of `child`, which no other control may hold, and puts it on top.
  void AddSubControl(ControlBasic* child);
  // Deletes the topmost sub-control of this id. False when there is none.
  bool RemoveSubControl(std::uint32_t id);
  // The topmost sub-control of this id, or null.
  ControlBasic* GetSubControl(std::uint32_t id);
  void SetParentControl(ControlBasic* control) { mParentControl = control; }
  // One of the sub-controls, or null.
  void SetFocusedControl(ControlBasic* control) { mFocusedControl = control; }
  std::uint32_t GetId() const { return mId; }

  // ---- Behaviour ----

  // Whether a press leaves the place in the parent's order as it is instead of raising this control to the top.
  void SetKeepOrder(bool keepOrder) { mKeepOrder = keepOrder; }
  bool GetKeepOrder() const { return mKeepOrder; }
  // Whether a press may give this control the focus.
  void SetEnabled(bool enabled) { mEnabled = enabled; }
  bool IsEnabled() const { return mEnabled; }
  bool IsActive() const { return mActive; }

  // The callback for sub-controls whose context is a control: hands the report to its `EventHandler`.
  static void CallbackWrapper(ControlEvent event);

 protected:
  // Builds the surface anew in the present size and refreshes everything. Does nothing while a compound setter runs.
  void CreateBaseSurface();
  // Tells the owner. The last thing an operation does, because the owner may change anything.
  void ReportEvent(std::uint32_t code);
  // Creates a control that reports to this one and hands it to `container`, which owns it.
  template <typename Control>
  Control* CreateInto(ControlBasic& container, std::uint32_t id) {
    auto* control = new Control(id, container.GetBaseSurface(), static_cast<ControlBasic*>(this), CallbackWrapper);
    container.AddSubControl(control);
    return control;
  }
  // Two pixels with a frame, else 0.
  int GetBorderWidth() const { return mBorderSurface == nullptr ? 0 : kFrameWidth; }

 private:
  using SubControls = std::list<std::unique_ptr<ControlBasic>>;

  SubControls::iterator FindSubControl(std::uint32_t id);
  SDL_Surface* GetSurfaceForSubControls() const;
  void PassSurfaceToSubControls();
  void RoutePress(SDL_MouseButtonEvent& press);
  void RouteRelease(const SDL_Event& release);
  // The control here or below that got the press of a button that is still held, or null.
  ControlBasic* FindReceiverOfPress(std::uint32_t button);
  bool IsShownAt(int x, int y) const;
  void PaintBackground();
  void FillWithBackgroundColor(const char* method);

  const ControlCallback mCallback;
  void* const mContext;
  SDL_Surface* mParentSurface;
  SurfacePtr mBaseSurface;
  SDL_Surface* mBorderSurface = nullptr;
  Rect mRect;
  Rgb mBackgroundColor;
  SDL_Surface* mBackgroundSurface = nullptr;
  // The front is the topmost: hit first, drawn last.
  SubControls mSubControls;
  ControlBasic* mFocusedControl = nullptr;
  ControlBasic* mParentControl = nullptr;
  const std::uint32_t mId;
  // A bit for each mouse button whose press this control got. No pointers: a receiver may be deleted before the
  // release.
  std::uint32_t mHeldButtons = 0;
  bool mActive = false;
  bool mEnabled = true;
  bool mVisible = true;
  bool mClearOnBlit = false;
  bool mKeepOrder = false;
  bool mOverrideBaseSurface = false;
  bool mSurfaceBuildingAllowed = false;
  bool mRefreshEnabled = true;
};

}  // namespace tolva
