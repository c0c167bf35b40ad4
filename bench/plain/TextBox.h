#pragma once

#include <string>

#include "plain/Label.h"

namespace tolva::plain {

// As tolva::ControlTextBox; looks for the first character that it shows one by one. The cursor is at the text's end.
class TextBox : public Label {
 public:
  using Label::Label;

  void SetActive(bool active) override;
  void SetEntered(const std::string& text);

 private:
  std::string mEntered;
};

}  // namespace tolva::plain
