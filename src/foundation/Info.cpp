#include "foundation/Info.h"

#include "foundation/Guard.h"
#include "foundation/Text.h"

namespace tolva {

Info::Info(const char* text, InfoLevel level) : mLevel(level) {
  Guard("Info", "Info", [&] { CopyText(mText, text); });
}

}  // namespace tolva
