#include "sdl/RenderedTexts.h"

#include <cstring>
#include <utility>

#include "foundation/Bisect.h"
#include "sdl/SdlError.h"
#include "sdl/Text.h"

namespace tolva {

namespace {

// The widest surface that SDL builds.
constexpr int kMaxSurfaceWidth = 16383;

std::size_t CountBytes(const SurfacePtr& picture) {
  return picture == nullptr ? 0 : std::size_t{picture->pitch} * static_cast<std::size_t>(picture->h);
}

RenderedText Render(TTF_Font& font, const std::string& text, Rgb color, const char* module, const char* method) {
  RenderedText rendered{MeasureText(&font, text.c_str(), module, method), nullptr};
  std::size_t shown = text.size();
  if (rendered.size.width > kMaxSurfaceWidth) {
    // The rest would lie beyond the edge of any surface.
    shown = Bisect(0, text.size(), [&](std::size_t count) {
      return MeasureText(&font, text.substr(0, count + 1).c_str(), module, method).width > kMaxSurfaceWidth;
    });
  }
  // The library fails on a text without pixels.
  if (shown == 0 || rendered.size.width <= 0) return rendered;
  rendered.picture = CheckSurface(RenderText(&font, text.substr(0, shown).c_str(), color), module, method);
  return rendered;
}

}  // namespace

const RenderedText& RenderedTexts::Get(TTF_Font& font, const char* text, Rgb color, const char* module,
                                       const char* method) {
  const char look[] = {static_cast<char>(TTF_GetFontStyle(&font)), static_cast<char>(color.r),
                       static_cast<char>(color.g), static_cast<char>(color.b)};
  mKey.assign(look, sizeof(look)).append(text);
  if (const auto found = mRecent.find(mKey); found != mRecent.end()) return found->second;
  if (Texts::node_type older = mOlder.extract(mKey)) return Keep(std::move(older));
  Texts fresh;
  fresh.emplace(mKey, Render(font, text, color, module, method));
  return Keep(fresh.extract(fresh.begin()));
}

const RenderedText& RenderedTexts::Keep(Texts::node_type node) {
  if (mRecent.size() >= kHalfCount || mRecentBytes >= kHalfBytes) {
    mOlder = std::exchange(mRecent, {});
    mRecentBytes = 0;
  }
  mRecentBytes += CountBytes(node.mapped().picture);
  return mRecent.insert(std::move(node)).position->second;
}

void RenderedTexts::Clear() {
  mRecent.clear();
  mOlder.clear();
  mRecentBytes = 0;
}

}  // namespace tolva
