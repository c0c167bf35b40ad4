#pragma once

#include <map>
#include <memory>
#include <string>

#include "display/TextBox.h"
#include "sdl/Rgb.h"

namespace tolva {

class InfoHandler;

// One-line texts of one color that stay for many frames and move with those who say them. A text is rendered when it
// first appears and kept until a frame goes by without it: ten people who speak would else cost twenty renderings a
// frame. Display thread only.
class Labels {
 public:
  // `logger` stays the caller's and must outlive the labels.
  Labels(Rgb color, InfoHandler& logger) : mColor(color), mLogger(logger) {}

  // The label with this text, valid until the next Forget.
  TextBox& Get(const char* text);
  // Ends a frame: drops the labels that nobody has got since the last time.
  void Forget();

 private:
  struct Label {
    std::unique_ptr<TextBox> box;
    bool isUsed = false;
  };

  const Rgb mColor;
  InfoHandler& mLogger;
  std::map<std::string, Label, std::less<>> mLabels;
};

}  // namespace tolva
