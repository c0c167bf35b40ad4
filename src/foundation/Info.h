#pragma once

#include <cstdint>

namespace tolva {

// What a record is about. The log file holds failures, error reports and progress only.
enum class InfoLevel : std::uint32_t {
  Traffic = 0,      // packets coming and going
  Failure = 1,      // something the player may notice
  ErrorReport = 2,  // an Error that reached its reporter
  Detail = 3,
  Progress = 4  // milestones and facts
};

// One log record. Whoever logs creates it with `new` and hands it to an InfoHandler, which deletes it.
class Info {
 public:
  // Keeps at most 255 characters of `text`.
  Info(const char* text, InfoLevel level);
  virtual ~Info() = default;

  const char* GetText() const { return mText; }
  InfoLevel GetLevel() const { return mLevel; }

 private:
  char mText[256];
  InfoLevel mLevel;
};

}  // namespace tolva
