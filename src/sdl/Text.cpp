#include "sdl/Text.h"

#include "sdl/SdlError.h"

namespace tolva {

Size MeasureText(TTF_Font* font, const char* text, const char* module, const char* method) {
  Size size;
  if (font != nullptr) CheckSdl(TTF_SizeText(font, text, &size.width, &size.height) == 0, module, method);
  return size;
}

SurfacePtr RenderText(TTF_Font* font, const char* text, Rgb color) {
  return SurfacePtr(font == nullptr ? nullptr : TTF_RenderText_Solid(font, text, {color.r, color.g, color.b, 0}));
}

}  // namespace tolva
