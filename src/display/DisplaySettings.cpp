#include "display/DisplaySettings.h"

#include <cstdlib>
#include <string>

#include "foundation/SettingsKeys.h"

namespace tolva {

DisplaySettings::DisplaySettings() : mIni(kSettingsFile) {}

DisplaySize DisplaySettings::GetSize() const {
  const long width = GetNumber(kWidthKey);
  const long height = GetNumber(kHeightKey);
  Size size = kResolutions[0];
  for (const Size& resolution : kResolutions) {
    if (width == resolution.width && height == resolution.height) size = resolution;
  }
  return {size.width, size.height, GetNumber(kFullScreenKey) == 1};
}

void DisplaySettings::SaveSize(const DisplaySize& size) {
  mIni.SetValue(kDisplaySection, kWidthKey, std::to_string(size.width).c_str());
  mIni.SetValue(kDisplaySection, kHeightKey, std::to_string(size.height).c_str());
  mIni.SetValue(kDisplaySection, kFullScreenKey, size.fullScreen ? "1" : "0");
  mIni.Save();
}

long DisplaySettings::GetNumber(const char* key) const {
  const char* text = mIni.GetValue(kDisplaySection, key);
  return text == nullptr ? 0 : std::strtol(text, nullptr, 10);
}

}  // namespace tolva
