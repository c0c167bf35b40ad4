#include "tools/archive/PictureCheck.h"

#include <algorithm>
#include <cstdio>

#include "archive/PngCheck.h"
#include "archive/PngRows.h"

namespace tolva {
namespace {

struct Color {
  int red, green, blue;
  bool operator==(const Color&) const = default;
};

constexpr Color kSeeThrough{255, 0, 255};

// Whether 5, 6 and 5 bits of the color are those of the see-through color.
bool LooksSeeThrough(const Color& color) { return color.red >= 248 && color.green < 4 && color.blue >= 248; }

std::string ToText(const Color& color) {
  char text[48];
  std::snprintf(text, sizeof text, "(%d,%d,%d)", color.red, color.green, color.blue);
  return text;
}

std::string FindHeaderFault(const PngHeader& header) {
  if (header.color == PngColor::Rgba || header.color == PngColor::GrayAlpha) {
    return "it has an alpha channel; see-through pixels must be the one transparent color (255,0,255)";
  }
  return header.bitDepth > 8 ? "it has more than 8 bits per sample" : "";
}

// Every pixel must be the index of a palette entry.
std::string FindIndexFault(const PngHeader& header, const PngRows& rows) {
  for (std::uint32_t y = 0; y < header.height; ++y) {
    const std::uint8_t* end = rows.GetRow(y) + header.width;
    const std::size_t count = rows.GetPalette().size();
    if (std::any_of(rows.GetRow(y), end, [count](std::uint8_t index) { return index >= count; })) {
      return "row " + std::to_string(y) + " uses a color that its palette does not have";
    }
  }
  return "";
}

std::string FindPaletteFault(const PngRows& rows) {
  const auto alphas = rows.GetAlphas();
  if (alphas.empty()) return "";
  if (std::any_of(alphas.begin(), alphas.end(), [](int alpha) { return alpha != 0 && alpha != 255; })) {
    return "it has a partly transparent palette entry";
  }
  if (std::count(alphas.begin(), alphas.end(), 0) != 1) return "it needs exactly one transparent palette entry";
  for (std::size_t entry = 0; entry < rows.GetPalette().size(); ++entry) {
    const png_color& file = rows.GetPalette()[entry];
    const Color color{file.red, file.green, file.blue};
    const bool isTransparent = entry < alphas.size() && alphas[entry] == 0;
    if (isTransparent && color != kSeeThrough) {
      return "its transparent palette entry is " + ToText(color) + ", not (255,0,255)";
    }
    if (!isTransparent && LooksSeeThrough(color)) {
      return "its opaque palette entry " + std::to_string(entry) + ", " + ToText(color) + ", would become see-through";
    }
  }
  return "";
}

std::string FindKeyFault(const PngHeader& header, const PngRows& rows) {
  if (rows.GetKey() == nullptr) return "";
  if (header.color == PngColor::Gray) return "it has a transparent gray instead of (255,0,255)";
  const Color key{rows.GetKey()->red, rows.GetKey()->green, rows.GetKey()->blue};
  if (key != kSeeThrough) return "its transparent color is " + ToText(key) + ", not (255,0,255)";
  for (std::uint32_t y = 0; y < header.height; ++y) {
    for (std::uint32_t x = 0; x < header.width; ++x) {
      const std::uint8_t* sample = rows.GetRow(y) + std::size_t{3} * x;
      const Color color{sample[0], sample[1], sample[2]};
      if (color != kSeeThrough && LooksSeeThrough(color)) {
        return "its opaque pixel at " + std::to_string(x) + "," + std::to_string(y) + ", " + ToText(color) +
               ", would become see-through";
      }
    }
  }
  return "";
}

}  // namespace

std::string FindPictureFault(std::span<const std::uint8_t> bytes) {
  const PngCheck check(bytes);
  if (!check.IsSound()) return check.GetFault();
  if (check.GetBytes().size() != bytes.size()) return "it has more bytes after its end chunk";
  const PngHeader& header = check.GetHeader();
  if (std::string fault = FindHeaderFault(header); !fault.empty()) return fault;

  const PngRows rows(check.GetBytes());
  if (!rows.IsDecoded()) return "its pixels are damaged";
  if (header.color != PngColor::Palette) return FindKeyFault(header, rows);
  std::string fault = FindIndexFault(header, rows);
  return fault.empty() ? FindPaletteFault(rows) : fault;
}

}  // namespace tolva
