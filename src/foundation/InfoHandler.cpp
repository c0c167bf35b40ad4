#include "foundation/InfoHandler.h"

#include <atomic>
#include <cstdio>
#include <memory>

#include <fcntl.h>

#include "foundation/Descriptor.h"
#include "foundation/Guard.h"
#include "foundation/Text.h"
#include "foundation/Ticks.h"

namespace tolva {
namespace {

std::atomic<bool> sLogEmptied{false};

// `flag` is O_TRUNC or O_APPEND.
Descriptor OpenLog(int flag) { return Descriptor(::open("log.clf", O_WRONLY | O_CREAT | O_CLOEXEC | flag, 0666)); }

bool IsWritten(InfoLevel level) {
  return level == InfoLevel::Failure || level == InfoLevel::ErrorReport || level == InfoLevel::Progress;
}

}  // namespace

InfoHandler::InfoHandler() {
  if (!sLogEmptied.exchange(true)) OpenLog(O_TRUNC);
}

void InfoHandler::SetModuleName(const char* name) { CopyText(mModuleName, name); }

void InfoHandler::HandleInfo(Info* info) {
  const std::unique_ptr<Info> owned(info);
  Guard("~InfoHandler", "HandleInfo", [&] {
    if (!IsWritten(info->GetLevel())) return;
    const int length = std::snprintf(mLine, sizeof mLine, "%010d %03d %-21s %s\n", static_cast<int>(GetTicks()),
                                     static_cast<int>(info->GetLevel()), mModuleName, info->GetText());
    const Descriptor log = OpenLog(O_APPEND);
    // One append for the whole record, so that records of different threads cannot mix.
    if (log.IsOpen() && length > 0) log.WriteAll(mLine, static_cast<std::size_t>(length));
  });
}

}  // namespace tolva
