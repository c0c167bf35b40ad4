#pragma once

#include "display/DisplaySize.h"
#include "foundation/Ini.h"

namespace tolva {

// The video mode in client.ini. Display thread only.
class DisplaySettings {
 public:
  // Reads the file.
  DisplaySettings();

  // The mode to start in. A size that is none of kResolutions, or is missing, gives the first of them.
  DisplaySize GetSize() const;
  // Writes the mode to the file, for the next start. Throws an Error when the file cannot be written.
  void SaveSize(const DisplaySize& size);

 private:
  // The number at the key, 0 when there is none.
  long GetNumber(const char* key) const;

  Ini mIni;
};

}  // namespace tolva
