#include "controls/ControlBasic.h"

#include <algorithm>
#include <limits>

#include "controls/Frame.h"
#include "controls/MouseWheel.h"
#include "foundation/FlagScope.h"
#include "foundation/Guard.h"
#include "sdl/Copy.h"
#include "sdl/SdlError.h"
#include "sdl/Surface.h"
#include "sdl/Tile.h"

namespace tolva {

namespace {

constexpr char kModule[] = "ControlBasic";

// What SDL can address.
int ClampPosition(int value) {
  return std::clamp<int>(value, std::numeric_limits<Sint16>::min(), std::numeric_limits<Sint16>::max());
}

int ClampSize(int value) { return std::clamp<int>(value, 0, std::numeric_limits<Uint16>::max()); }

// SDL counts buttons from 1, and no mouse has 32.
std::uint32_t GetButtonBit(const SDL_MouseButtonEvent& event) { return std::uint32_t{1} << event.button % 32; }

}  // namespace

ControlBasic::ControlBasic(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback)
    : mCallback(callback), mContext(context), mParentSurface(parentSurface), mId(id) {
  GuardControl(kModule, "ControlBasic", [&] {
    ControlBasic::SetBackgroundColor(255, 255, 255);
    mSurfaceBuildingAllowed = true;
    CreateBaseSurface();
  });
}

// ---- Events ----

void ControlBasic::HandleSdlEvent(SDL_Event event) {
  GuardControl(kModule, "HandleSdlEvent", [&] {
    if (IsWheel(event)) {
      const int notches = event.button.button == SDL_BUTTON_WHEELDOWN ? 1 : -1;
      if (event.type == SDL_MOUSEBUTTONDOWN) TurnWheel(event.button.x, event.button.y, notches);
      return;
    }
    if (event.type == SDL_MOUSEBUTTONUP) return RouteRelease(event);
    SetActive(true);
    if (event.type == SDL_MOUSEBUTTONDOWN) RoutePress(event.button);
    // Do nothing after this: the handler may change the tree.
    if (mFocusedControl != nullptr) {
      mFocusedControl->HandleSdlEvent(event);
    } else {
      SdlEventHandler(event);
    }
  });
}

void ControlBasic::RoutePress(SDL_MouseButtonEvent& press) {
  // A button that is held already: its release was lost.
  if (ControlBasic* before = FindReceiverOfPress(GetButtonBit(press))) before->mHeldButtons &= ~GetButtonBit(press);
  mFocusedControl = nullptr;
  press.x = static_cast<Uint16>(press.x - mRect.x);
  press.y = static_cast<Uint16>(press.y - mRect.y);
  // Everything below loses the focus, then this control and those above it get it back.
  SetActive(false);
  SetActive(true);
  const auto hit = std::find_if(mSubControls.begin(), mSubControls.end(), [&](const auto& control) {
    return control->mEnabled && control->IsShownAt(press.x, press.y);
  });
  if (hit != mSubControls.end()) {
    ControlBasic& control = **hit;
    if (!control.mKeepOrder) mSubControls.splice(mSubControls.begin(), mSubControls, hit);
    mFocusedControl = &control;
    control.SetActive(true);
  } else {
    mHeldButtons |= GetButtonBit(press);
  }
  // A drag counts from this press.
  SDL_GetRelativeMouseState(nullptr, nullptr);
}

void ControlBasic::RouteRelease(const SDL_Event& release) {
  ControlBasic* receiver = FindReceiverOfPress(GetButtonBit(release.button));
  if (receiver == nullptr) return;
  receiver->mHeldButtons &= ~GetButtonBit(release.button);
  receiver->SdlEventHandler(release);
}

ControlBasic* ControlBasic::FindReceiverOfPress(std::uint32_t button) {
  if ((mHeldButtons & button) != 0) return this;
  for (const auto& control : mSubControls) {
    if (ControlBasic* receiver = control->FindReceiverOfPress(button)) return receiver;
  }
  return nullptr;
}

bool ControlBasic::IsShownAt(int x, int y) const { return mVisible && mRect.IsHitAt(x, y); }

bool ControlBasic::TurnWheel(int x, int y, int notches) {
  return GuardControl(kModule, "TurnWheel", [&] {
    const int innerX = x - mRect.x;
    const int innerY = y - mRect.y;
    const auto front = std::find_if(mSubControls.begin(), mSubControls.end(),
                                    [&](const auto& control) { return control->IsShownAt(innerX, innerY); });
    return front != mSubControls.end() && (*front)->TurnWheel(innerX, innerY, notches);
  });
}

void ControlBasic::SetActive(bool active) {
  GuardControl(kModule, "SetActive", [&] {
    mActive = active;
    if (!active) {
      for (const auto& control : mSubControls) control->SetActive(false);
      mFocusedControl = nullptr;
    } else if (mParentControl != nullptr) {
      mParentControl->SetFocusedControl(this);
      mParentControl->SetActive(true);
    }
  });
}

void ControlBasic::SdlEventHandler(SDL_Event) {}

void ControlBasic::EventHandler(ControlEvent) {}

void ControlBasic::ReportEvent(std::uint32_t code) {
  if (mCallback != nullptr) mCallback({this, mContext, code});
}

void ControlBasic::CallbackWrapper(ControlEvent event) {
  GuardControl(kModule, "CallbackWrapper", [&] {
    if (event.receiver != nullptr) static_cast<ControlBasic*>(event.receiver)->EventHandler(event);
  });
}

// ---- Frames ----

void ControlBasic::Blit() {
  GuardControl(kModule, "Blit", [&] {
    if (mBaseSurface == nullptr || !mVisible) return;
    if (mClearOnBlit) FillWithBackgroundColor("Blit");
    for (auto control = mSubControls.rbegin(); control != mSubControls.rend(); ++control) (*control)->Blit();
    if (mOverrideBaseSurface) return;
    CheckSdl(CopyWhole(mBaseSurface.get(), mParentSurface, mRect.x, mRect.y), kModule, "Blit");
  });
}

void ControlBasic::Refresh(bool recursive) {
  GuardControl(kModule, "Refresh", [&] {
    if (!mRefreshEnabled) return;
    if (mBaseSurface != nullptr) {
      PaintBackground();
      if (mBorderSurface != nullptr) CheckSdl(PaintFrame(mBorderSurface, *mBaseSurface), kModule, "Refresh");
    }
    if (!recursive) return;
    for (const auto& control : mSubControls) control->Refresh(true);
  });
}

void ControlBasic::PaintBackground() {
  if (mBackgroundSurface != nullptr && !GetBounds(*mBackgroundSurface).IsEmpty()) {
    return CheckSdl(TileOver(mBackgroundSurface, *mBaseSurface), kModule, "Refresh");
  }
  // Removes the old look of this control from what shows through.
  if (mBackgroundColor == kTransparentColor && mParentControl != nullptr) mParentControl->Refresh(false);
  FillWithBackgroundColor("Refresh");
}

void ControlBasic::FillWithBackgroundColor(const char* method) {
  CheckSdl(Fill(*mBaseSurface, mBackgroundColor), kModule, method);
}

// ---- Surfaces ----

void ControlBasic::CreateBaseSurface() {
  GuardControl(kModule, "CreateBaseSurface", [&] {
    if (!mSurfaceBuildingAllowed) return;
    mBaseSurface.reset();
    // If building the new one fails, no sub-control may keep the old.
    PassSurfaceToSubControls();
    const SDL_Surface* video = SDL_GetVideoSurface();
    if (video == nullptr) throw new Error(kModule, "CreateBaseSurface", "No video mode has been set");
    SurfacePtr base =
        CheckSurface(MakeDisplaySurface({mRect.width, mRect.height}, *video), kModule, "CreateBaseSurface");
    CheckSdl(SetColorKey(*base, kTransparentColor), kModule, "CreateBaseSurface");
    mBaseSurface = std::move(base);
    PassSurfaceToSubControls();
    Refresh(true);
  });
}

SDL_Surface* ControlBasic::GetSurfaceForSubControls() const {
  return mOverrideBaseSurface ? mParentSurface : mBaseSurface.get();
}

void ControlBasic::PassSurfaceToSubControls() {
  for (const auto& control : mSubControls) control->SetParentSurface(GetSurfaceForSubControls());
}

void ControlBasic::SetParentSurface(SDL_Surface* surface) {
  GuardControl(kModule, "SetParentSurface", [&] {
    mParentSurface = surface;
    if (mOverrideBaseSurface) PassSurfaceToSubControls();
  });
}

void ControlBasic::SetOverrideBaseSurface(bool overrideBaseSurface) {
  GuardControl(kModule, "SetOverrideBaseSurface", [&] {
    mOverrideBaseSurface = overrideBaseSurface;
    PassSurfaceToSubControls();
  });
}

// ---- Geometry ----

void ControlBasic::SetX(int x) { mRect.x = ClampPosition(x); }

void ControlBasic::SetY(int y) { mRect.y = ClampPosition(y); }

void ControlBasic::SetWidth(int width) {
  GuardControl(kModule, "SetWidth", [&] {
    if (ClampSize(width) == mRect.width) return;
    mRect.width = ClampSize(width);
    CreateBaseSurface();
  });
}

void ControlBasic::SetHeight(int height) {
  GuardControl(kModule, "SetHeight", [&] {
    if (ClampSize(height) == mRect.height) return;
    mRect.height = ClampSize(height);
    CreateBaseSurface();
  });
}

void ControlBasic::SetPosition(int x, int y) {
  GuardControl(kModule, "SetPosition", [&] {
    SetY(y);
    SetX(x);
  });
}

void ControlBasic::SetSize(int width, int height) {
  GuardControl(kModule, "SetSize", [&] {
    {
      const FlagScope oneBuildingIsEnough(mSurfaceBuildingAllowed, false);
      SetHeight(height);
      SetWidth(width);
    }
    CreateBaseSurface();
  });
}

void ControlBasic::SetPosition(int x, int y, int width, int height) {
  GuardControl(kModule, "SetPosition", [&] {
    const int widthBefore = GetWidth();
    const int heightBefore = GetHeight();
    {
      const FlagScope oneBuildingIsEnough(mSurfaceBuildingAllowed, false);
      SetPosition(x, y);
      SetHeight(height);
      SetWidth(width);
    }
    if (GetWidth() != widthBefore || GetHeight() != heightBefore) CreateBaseSurface();
  });
}

// ---- Look ----

void ControlBasic::SetBorderSurface(SDL_Surface* surface) {
  GuardControl(kModule, "SetBorderSurface", [&] {
    mBorderSurface = surface;
    Refresh(true);
  });
}

void ControlBasic::SetBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
  GuardControl(kModule, "SetBackgroundColor", [&] {
    mBackgroundColor = {r, g, b};
    Refresh(true);
  });
}

void ControlBasic::SetBackgroundSurface(SDL_Surface* surface) {
  GuardControl(kModule, "SetBackgroundSurface", [&] {
    mBackgroundSurface = surface;
    Refresh(true);
  });
}

// ---- Tree ----

void ControlBasic::AddSubControl(ControlBasic* child) {
  GuardControl(kModule, "AddSubControl", [&] {
    mSubControls.push_front(std::unique_ptr<ControlBasic>(child));
    child->SetParentSurface(GetSurfaceForSubControls());
    child->SetParentControl(this);
  });
}

bool ControlBasic::RemoveSubControl(std::uint32_t id) {
  return GuardControl(kModule, "RemoveSubControl", [&] { return TakeSubControl(id) != nullptr; });
}

std::unique_ptr<ControlBasic> ControlBasic::TakeSubControl(std::uint32_t id) {
  const auto found = FindSubControl(id);
  if (found == mSubControls.end()) return nullptr;
  std::unique_ptr<ControlBasic> taken = std::move(*found);
  mSubControls.erase(found);
  if (mFocusedControl == taken.get()) mFocusedControl = nullptr;
  taken->mParentControl = nullptr;
  taken->mActive = false;
  taken->mHeldButtons = 0;
  return taken;
}

ControlBasic* ControlBasic::GetSubControl(std::uint32_t id) {
  return GuardControl(kModule, "RemoveSubControl", [&]() -> ControlBasic* {
    const auto found = FindSubControl(id);
    return found == mSubControls.end() ? nullptr : found->get();
  });
}

ControlBasic::SubControls::iterator ControlBasic::FindSubControl(std::uint32_t id) {
  return std::find_if(mSubControls.begin(), mSubControls.end(),
                      [id](const auto& control) { return control->GetId() == id; });
}

}  // namespace tolva
