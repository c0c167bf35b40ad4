#pragma once

#include <cstddef>
#include <deque>
#include <string>

#include "controls/ControlListBox.h"

namespace tolva::plain {

// As tolva::ControlChatBox, at its end with the last lines; makes the labels of its rows anew with each refresh.
class ChatBox : public ControlListBox {
 public:
  static constexpr std::size_t kMaxLines = 100;

  using ControlListBox::ControlListBox;

  void Refresh(bool recursive) override;
  int GetEntryCount() override { return static_cast<int>(mLines.size()); }
  void DeleteEntryLabels() override;
  void CreateEntryLabels() override;

  using ControlListBox::AddEntry;
  void AddEntry(const char* name, const char* text);
  void ScrollTo(int line);

 private:
  struct Line {
    int nameWidth = 0;
    std::string name;
    std::string text;
  };

  void AddLabel(std::uint32_t index, int x, int y, int width, const std::string& text);

  std::deque<Line> mLines;
  bool mRefreshing = false;
};

}  // namespace tolva::plain
