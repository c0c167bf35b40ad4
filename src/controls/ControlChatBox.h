#pragma once

#include <deque>

#include <SDL_ttf.h>

#include "controls/ControlListBox.h"

namespace tolva {

// A list of chat messages, wrapped to the width of the box, with the speakers' names in a column of their own. Follows
// new messages while it is scrolled to the end. The oldest messages and lines make room for new ones.
class ControlChatBox : public ControlListBox {
 public:
  // Names and texts are cut to this many characters.
  static constexpr std::size_t kMaxNameLength = 63;
  static constexpr std::size_t kMaxLineLength = 1023;

  using ControlListBox::ControlListBox;

  void Refresh(bool recursive) override;
  void EventHandler(ControlEvent event) override;
  // A message that nobody said.
  void AddEntry(const char* text) override;
  // What was said cannot be taken back: does nothing and returns false.
  bool RemoveEntry(const char* text) override;
  void ClearEntries() override;
  // The number of lines.
  int GetEntryCount() override;
  void DeleteEntryLabels() override;
  void CreateEntryLabels() override;

  void AddEntry(const char* name, const char* text);
  void SetNameColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) { mNameColor = {r, g, b}; }
  // Take effect with the next message.
  void SetMaxMessages(std::uint32_t count) { mMaxMessages = count; }
  void SetMaxLines(std::uint32_t count) { mMaxLines = count; }

  // Appends `text` to `lines`, wrapped at blanks so that each line is at most `width` pixels wide in `font`, but has at
  // least one character; a word that is wider than a line is cut. Without a font everything counts as 0 pixels wide.
  // Returns the number of lines appended, at least 1.
  static int WrapText(const char* text, int width, TTF_Font* font, std::vector<std::string>& lines);

 private:
  struct Message {
    std::string name;
    std::string text;
  };
  struct Line {
    int nameWidth;
    std::string name;  // empty in the lines that continue a message
    std::string text;
    bool isFromServer;
  };

  void StoreLines(const Message& message);
  void CreateRow(int row);

  std::deque<Message> mMessages;
  std::deque<Line> mLines;
  Rgb mNameColor{255, 0, 0};
  std::uint32_t mMaxMessages = 5;
  std::uint32_t mMaxLines = 5;
  bool mRefreshing = false;
};

}  // namespace tolva
