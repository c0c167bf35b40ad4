#pragma once

#include <string>
#include <vector>

#include "controls/ControlBasic.h"

namespace tolva {

class ControlLabel;
class ControlScrollbar;

// A column of one-line entries with a scrollbar at its right edge. Only the rows that fit exist as labels, created anew
// on every full refresh, so whoever keeps a pointer to one keeps it too long. The sub-control ids 0 and from 1000 on
// are taken.
class ControlListBox : public ControlBasic {
 public:
  // Entries are cut to this many characters.
  static constexpr std::size_t kMaxEntryLength = 255;
  static constexpr int kRowHeight = 19;

  ControlListBox(std::uint32_t id, SDL_Surface* parentSurface, void* context, ControlCallback callback);

  void SetBorderSurface(SDL_Surface* surface) override;
  void Refresh(bool recursive) override;
  void EventHandler(ControlEvent event) override;
  bool TurnWheel(int x, int y, int notches) override;

  virtual void AddEntry(const char* text);
  // Removes the first entry that equals `text`. False when there is none.
  virtual bool RemoveEntry(const char* text);
  // Shows in the next refresh.
  virtual void ClearEntries();
  virtual int GetEntryCount();
  virtual void DeleteEntryLabels();
  virtual void CreateEntryLabels();

  // The colour of the entries.
  void SetForegroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  void SetDecrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed);
  void SetIncrementButtonSurfaces(SDL_Surface* pressed, SDL_Surface* unpressed);
  void SetScrollbarBackgroundSurface(SDL_Surface* surface);
  void SetScrollbarValueBackgroundColor(std::uint8_t r, std::uint8_t g, std::uint8_t b);
  // How many rows fit.
  int CalculateVisibleEntries();

 protected:
  // The labels of all rows count up from here.
  static constexpr std::uint32_t kFirstLabelId = 1000;

  // Adds a row's label with the id kFirstLabelId + `index`, one row high, on this control's background.
  void AddLabel(int index, int x, int y, int width, const std::string& text, Rgb color);
  void RemoveLabels(int count);

  // Owned by the list of sub-controls.
  ControlScrollbar* mScrollbar = nullptr;
  Rgb mForegroundColor{255, 0, 0};
  // How many rows exist as labels.
  int mVisibleCount = 0;

 private:
  void UpdateScrollRange();

  std::vector<std::string> mEntries;
};

}  // namespace tolva
