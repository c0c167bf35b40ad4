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

// The base of all controls: a rectangle with its own surface, a background, an optional frame, and sub-controls, which
// it owns. Setters render what they change (`Refresh`), so that a frame only copies finished surfaces (`Blit`). Display
// thread only; needs a video mode. Pictures are borrowed: their owner frees them after the controls. Operations throw
// an `Error*` when SDL fails.
class ControlBasic {
 public:
  // `parentSurface` is borrowed: `Blit` copies onto it. `callback`, which may be null, gets every report with
  // `context`; if it is `CallbackWrapper`, `context` must be a ControlBasic* or null.
  ControlBasic(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);
  virtual ~ControlBasic() = default;

  ControlBasic(const ControlBasic&) = delete;
  ControlBasic& operator=(const ControlBasic&) = delete;

  // ---- Events and frames: the virtual operations, overridden along the class chain ----

  // Passes an event down the tree to the one control that reacts. A press goes to the frontmost enabled control under
  // the pointer, in that control's coordinates, and gives it the focus. A release goes to the control that got the
  // press, if that still exists. The wheel goes to `TurnWheel`. Everything else goes to the control with the focus.
  virtual void HandleSdlEvent(SDL_Event event);
  // Draws the sub-controls onto this control, and this control onto the parent surface.
  virtual void Blit();
  // See PaintFrame for the picture. Null removes the frame.
  virtual void SetBorderSurface(SDL_Surface* surface);
  // In pixels, clamped to 0..65535. A change rebuilds the surface, which fails above 16383.
  virtual void SetWidth(int width);
  virtual void SetHeight(int height);
  virtual void SetBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  // Gives this control the focus, or takes it from this control and all below it. All controls above one with the focus
  // are active, too.
  virtual void SetActive(bool active);
  // Renders this control again and, if `recursive`, all below it.
  virtual void Refresh(bool recursive);
  // What this control does with an event that was passed to it.
  virtual void SdlEventHandler(SDL_Event event);
  // What this control does with a report that came through `CallbackWrapper`.
  virtual void EventHandler(ControlEvent event);
  // Scrolls the frontmost control at (x, y), in the parent's coordinates, by `notches` of the wheel; positive is down.
  // False when nothing there scrolls.
  virtual bool TurnWheel(int x, int y, int notches);

  // ---- Geometry, in pixels of the parent ----

  // Clamped to -32768..32767. Renders nothing.
  void SetX(int x);
  void SetY(int y);
  void SetPosition(int x, int y);
  // Rebuilds the surface once, even when the size stays the same.
  void SetSize(int width, int height);
  // Rebuilds the surface only when the size changes.
  void SetPosition(int x, int y, int width, int height);
  int GetX() const { return mRect.x; }
  int GetY() const { return mRect.y; }
  int GetWidth() const { return mRect.width; }
  int GetHeight() const { return mRect.height; }

  // ---- Look ----

  void SetBackgroundColor(Rgb color) { SetBackgroundColor(color.r, color.g, color.b); }
  // Tiled over the surface; null shows the background color.
  void SetBackgroundSurface(SDL_Surface* surface);
  Rgb GetBackgroundColor() const { return mBackgroundColor; }
  SDL_Surface* GetBorderSurface() const { return mBorderSurface; }
  // Null only after building a surface has failed.
  SDL_Surface* GetBaseSurface() const { return mBaseSurface.get(); }
  SDL_Surface* GetParentSurface() const { return mParentSurface; }
  void SetParentSurface(SDL_Surface* surface);
  // Whether the sub-controls draw onto the parent surface directly. This control then does not draw itself.
  void SetOverrideBaseSurface(bool overrideBaseSurface);
  // Whether each `Blit` starts from a surface in the background color.
  void SetClearOnBlit(bool clearOnBlit) { mClearOnBlit = clearOnBlit; }
  void SetVisible(bool visible) { mVisible = visible; }
  bool IsVisible() const { return mVisible; }
  // Switch off to render once after several setters.
  void SetRefreshEnabled(bool enabled) { mRefreshEnabled = enabled; }
  bool IsRefreshEnabled() const { return mRefreshEnabled; }

  // ---- Tree ----

  // Takes ownership of `child`, which no other control may own, and puts it in front.
  void AddSubControl(ControlBasic* child);
  // Deletes the frontmost sub-control with this id. False when there is none.
  bool RemoveSubControl(std::uint32_t id);
  // The frontmost sub-control with this id, which stays this control's, or null.
  ControlBasic* GetSubControl(std::uint32_t id);
  void SetParentControl(ControlBasic* control) { mParentControl = control; }
  // One of the sub-controls, or null.
  void SetFocusedControl(ControlBasic* control) { mFocusedControl = control; }
  std::uint32_t GetId() const { return mId; }

  // ---- Behavior ----

  // Whether this control stays where it is among its siblings when it is pressed, instead of coming to the front.
  void SetKeepOrder(bool keepOrder) { mKeepOrder = keepOrder; }
  bool GetKeepOrder() const { return mKeepOrder; }
  // A press passes through a disabled control to what is behind it.
  void SetEnabled(bool enabled) { mEnabled = enabled; }
  bool IsEnabled() const { return mEnabled; }
  bool IsActive() const { return mActive; }

  // A callback for controls whose context is a control: calls its `EventHandler`.
  static void CallbackWrapper(ControlEvent event);

 protected:
  // Replaces the surface by one of the present size and refreshes everything. Does nothing inside a setter that makes
  // several changes.
  void CreateBaseSurface();
  // Calls the callback. Do nothing after it: the owner may have changed anything.
  void ReportEvent(std::uint32_t code);
  // Creates a control that reports to this one. `container` owns it.
  template <typename Control>
  Control* CreateInto(ControlBasic& container, std::uint32_t id) {
    auto* control = new Control(id, container.GetBaseSurface(), static_cast<ControlBasic*>(this), CallbackWrapper);
    container.AddSubControl(control);
    return control;
  }
  // Takes out the frontmost sub-control with this id, without the focus and the buttons it held, to be added again.
  // Null when there is none.
  std::unique_ptr<ControlBasic> TakeSubControl(std::uint32_t id);
  // In pixels; 0 without a frame.
  int GetBorderWidth() const { return mBorderSurface == nullptr ? 0 : kFrameWidth; }

 private:
  using SubControls = std::list<std::unique_ptr<ControlBasic>>;

  SubControls::iterator FindSubControl(std::uint32_t id);
  SDL_Surface* GetSurfaceForSubControls() const;
  void PassSurfaceToSubControls();
  void RoutePress(SDL_MouseButtonEvent& press);
  void RouteRelease(const SDL_Event& release);
  // Of this control and those below it, the one that got the press of a button in this mask; null for none.
  ControlBasic* FindReceiverOfPress(std::uint32_t button);
  bool IsShownAt(int x, int y) const;
  void PaintBackground();
  void FillWithBackgroundColor(const char* method);

  const ControlCallback mCallback;
  void* const mContext;
  SDL_Surface* mParentSurface;  // borrowed, as are the two pictures
  SurfacePtr mBaseSurface;
  SDL_Surface* mBorderSurface = nullptr;
  Rect mRect;
  Rgb mBackgroundColor;
  SDL_Surface* mBackgroundSurface = nullptr;
  // From front to back: the first is hit first and drawn last.
  SubControls mSubControls;
  ControlBasic* mFocusedControl = nullptr;  // one of mSubControls
  ControlBasic* mParentControl = nullptr;   // owns this control
  const std::uint32_t mId;
  // The mouse buttons whose press this control got, a bit each. Not a pointer to the receiver in the root, since the
  // receiver may be deleted before the release.
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
