#include "foundation/InfoHandler.h"

#include <atomic>
#include <cstdio>
#include <memory>

#include "foundation/Guard.h"
#include "foundation/Text.h"
#include "foundation/Ticks.h"

namespace tolva {
namespace {

constexpr const char* kLogFile = "log.clf";

std::atomic<bool> logEmptied{false};

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

bool IsWritten(InfoLevel level) {
  return level == InfoLevel::Failure || level == InfoLevel::ErrorReport || level == InfoLevel::Progress;
}

}  // namespace

InfoHandler::InfoHandler() {
  if (!logEmptied.exchange(true)) File(std::fopen(kLogFile, "wb"));
}

void InfoHandler::SetModuleName(const char* name) { CopyText(mModuleName, name); }

void InfoHandler::HandleInfo(Info* info) {
  const std::unique_ptr<Info> owned(info);
  Guard("~InfoHandler", "HandleInfo", [&] {
    if (!IsWritten(info->GetLevel())) return;
    const int length = std::snprintf(mLine, sizeof mLine, "%010d %03d %-21s %s\n", static_cast<int>(GetTicks()),
                                     static_cast<int>(info->GetLevel()), mModuleName, info->GetText());
    const File file(std::fopen(kLogFile, "ab"));
    // The stream's buffer is larger than a line, so closing it appends the whole record with one write and records of
    // different threads cannot mix.
    if (file && length > 0) std::fwrite(mLine, 1, static_cast<std::size_t>(length), file.get());
  });
}

}  // namespace tolva
