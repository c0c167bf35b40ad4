#pragma once

#include <string>
#include <vector>

#include "controls/ControlBasic.h"

namespace tolva {

class ControlLabel;
class ControlScrollbar;

// A vertical list of one-line texts with a scrollbar on the right. Its rows are labels that a full refresh places and
// fills anew: keep no pointers to them. Uses the sub-control ids 0 and 1000 and above.
class ControlListBox : public ControlBasic {
 public:
  // Longer entries are cut.
  static constexpr std::size_t kMaxEntryLength = 255;
  static constexpr int kRowHeight = 19;

  ControlListBox(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  void SetBorderSurface(SDL_Surface* surface) override;
  void Refresh(bool recursive) override;
  void EventHandler(ControlEvent event) override;
  bool TurnWheel(int x, int y, int notches) override;

  virtual void AddEntry(const char* text);
  // Takes out one entry, the topmost with this text. False when no entry has it.
  virtual bool RemoveEntry(const char* text);
  // The rows stay until the next refresh.
  virtual void ClearEntries();
  virtual int GetEntryCount();
  virtual void DeleteEntryLabels();
  virtual void CreateEntryLabels();

  // The color of the texts.
  void SetForegroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  void SetDecrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed);
  void SetIncrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed);
  void SetScrollbarBackgroundSurface(SDL_Surface* surface);
  void SetScrollbarValueBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  // How many rows fit.
  int CalculateVisibleEntries();

 protected:
  // The id of the first row's label; the others count up from it.
  static constexpr std::uint32_t kFirstLabelId = 1000;

  // Adds a label with the id kFirstLabelId + `index`, one row high, in this control's background color.
  void AddLabel(int index, int x, int y, int width, const std::string& text, Rgb color);
  // Takes out the labels with these many ids. The next ones that are added with these ids are the same labels: building
  // their surfaces costs more than painting them.
  void RemoveLabels(int count);

  // Owned as a sub-control.
  ControlScrollbar* mScrollbar = nullptr;
  Rgb mForegroundColor{255, 0, 0};
  // How many rows have labels.
  int mVisibleCount = 0;

 private:
  void UpdateScrollRange();
  std::unique_ptr<ControlLabel> MakeLabel(int index);

  std::vector<std::string> mEntries;
  std::vector<std::unique_ptr<ControlBasic>> mSpareLabels;  // by index; null for none
};

}  // namespace tolva
