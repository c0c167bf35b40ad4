#pragma once

#include <string>

#include "controls/ControlTextBasic.h"
#include "sdl/SurfacePtr.h"

namespace tolva::plain {

// As tolva::ControlLabel, with the text at the left; renders it with each refresh.
class Label : public ControlTextBasic {
 public:
  using ControlTextBasic::ControlTextBasic;

  void Refresh(bool recursive) override;
  void SetText(const std::string& text);

 private:
  std::string mText;
  SurfacePtr mPicture;
};

}  // namespace tolva::plain
