#include "foundation/Error.h"

#include "foundation/Text.h"
#include "foundation/Ticks.h"

namespace tolva {

Error::Error(const char* module, const char* method) : Error(module, method, "") {}

Error::Error(const char* module, const char* method, const char* message) : mTick(GetTicks()) {
  CopyText(mModule, module);
  CopyText(mMethod, method);
  CopyText(mMessage, message);
}

}  // namespace tolva
