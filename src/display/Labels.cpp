#include "display/Labels.h"

#include <string_view>

namespace tolva {
namespace {

constexpr std::uint16_t kWidth = 800;
constexpr std::uint16_t kHeight = 20;

}  // namespace

TextBox& Labels::Get(const char* text) {
  auto found = mLabels.find(std::string_view(text));
  if (found == mLabels.end()) {
    auto box = std::make_unique<TextBox>(0, 0, kWidth, kHeight, mColor.r, mColor.g, mColor.b, text, &mLogger);
    found = mLabels.emplace(text, Label{std::move(box)}).first;
  }
  found->second.isUsed = true;
  return *found->second.box;
}

void Labels::Forget() {
  std::erase_if(mLabels, [](const auto& label) { return !label.second.isUsed; });
  for (auto& [text, label] : mLabels) label.isUsed = false;
}

}  // namespace tolva
