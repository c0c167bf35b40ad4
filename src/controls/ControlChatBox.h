#pragma once

#include <deque>

#include <SDL_ttf.h>

#include "controls/ControlListBox.h"

namespace tolva {

// A list of chat messages, wrapped to the width of the box, with the speakers' names in front. Scrolls with new
// messages while its end is in view. Keeps a bounded number of messages and lines and drops the oldest.
class ControlChatBox : public ControlListBox {
 public:
  // Longer names and texts are cut.
  static constexpr std::size_t kMaxNameLength = 63;
  static constexpr std::size_t kMaxLineLength = 1023;

  using ControlListBox::ControlListBox;

  void Refresh(bool recursive) override;
  void EventHandler(ControlEvent event) override;
  // A message without a speaker.
  void AddEntry(const char* text) override;
  // Messages cannot be removed: does nothing and returns false.
  bool RemoveEntry(const char* text) override;
  // The box shows the messages until the next Refresh.
  void ClearEntries() override;
  // The number of lines.
  int GetEntryCount() override;
  void DeleteEntryLabels() override;
  void CreateEntryLabels() override;

  void AddEntry(const char* name, const char* text);
  void SetNameColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) { mNameColor = {r, g, b}; }
  // Both take effect with the next message.
  void SetMaxMessages(std::uint32_t count) { mMaxMessages = count; }
  void SetMaxLines(std::uint32_t count) { mMaxLines = count; }

  // Appends `text` to `lines`, broken at blanks into lines of at most `width` pixels and at least one character. A word
  // wider than that is cut. Without a font (null), every text is 0 pixels wide. Returns how many lines it appended, at
  // least 1.
  static int WrapText(const char* text, int width, TTF_Font* font, std::vector<std::string>& lines);

 private:
  struct Message {
    std::string name;
    std::string text;
  };
  struct Line {
    int nameWidth;
    std::string name;  // empty in the second and later lines of a message
    std::string text;
    bool isFromServer;
  };

  void StoreLines(const Message& message);
  void CreateRow(int row);

  // Whole texts, to wrap again for another width, because lines cannot be joined. Nothing needs that yet.
  std::deque<Message> mMessages;
  std::deque<Line> mLines;
  Rgb mNameColor{255, 0, 0};
  std::uint32_t mMaxMessages = 5;
  std::uint32_t mMaxLines = 5;
  bool mRefreshing = false;
};

}  // namespace tolva
