#pragma once

#include "controls/ControlTextBasic.h"

namespace tolva {

// One line of text, aligned to one of nine places.
class ControlLabel : public ControlTextBasic {
 public:
  static constexpr std::uint32_t kEventMouseDown = 0;
  // These two come while the label has the focus, wherever the pointer is.
  static constexpr std::uint32_t kEventMouseUp = 1;
  static constexpr std::uint32_t kEventMouseMotion = 2;

  // Any other value aligns to the top left corner, without a margin.
  enum Alignment : std::uint32_t {
    kTopLeft = 0,
    kTopCenter = 1,
    kTopRight = 2,
    kMiddleLeft = 3,
    kMiddleCenter = 4,
    kMiddleRight = 5,
    kBottomLeft = 6,
    kBottomCenter = 7,
    kBottomRight = 8
  };

  static constexpr int kTextCapacity = 1024;
  // Pixels left free on each side of the text.
  static constexpr int kMargin = 3;

  ControlLabel(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  void Refresh(bool recursive) override;
  void SdlEventHandler(SDL_Event event) override;

  // Latin-1, one byte per character.
  virtual const char* GetText() const { return mText; }
  // Cuts to the maximum length.
  virtual void SetText(const char* text);

  void SetAlignment(std::uint32_t alignment);
  // Clamped to 0..1023. Does not cut the present text.
  void SetMaxLength(int length);
  int GetMaxLength() const { return mMaxLength; }

  // Where the rendered text starts in the base surface, and its width, in pixels.
  int GetTextX() const { return mTextX; }
  int GetTextY() const { return mTextY; }
  int GetTextWidth() const { return mTextWidth; }

 private:
  // Takes the text's size. Returns its picture, or null when there is nothing to paint. The picture is the shared
  // font's.
  SDL_Surface* RenderText();
  void PlaceText();
  void PaintText(SDL_Surface* picture);

  char mText[kTextCapacity] = "";
  std::uint32_t mAlignment = kMiddleLeft;
  int mTextX = 0;
  int mTextY = 0;
  int mTextWidth = 0;
  int mTextHeight = 0;
  int mMaxLength = kTextCapacity - 1;
};

}  // namespace tolva
