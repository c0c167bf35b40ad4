#include "foundation/ErrHandler.h"

#include <cstdio>
#include <memory>

#include "foundation/Error.h"
#include "foundation/Guard.h"
#include "foundation/Info.h"

namespace tolva {

ErrHandler::ErrHandler() {
  Guard("ErrHandler", "ErrHandler", [&] { mInfoHandler.SetModuleName("### ERROR ###"); });
}

void ErrHandler::HandleError(Error* error) {
  const std::unique_ptr<Error> owned(error);
  Guard("ErrHandler", "HandleError", [&] {
    if (!mLimiter.Admit(mInfoHandler)) return;
    char text[512];
    std::snprintf(text, sizeof text, "At tick %d in Module %s - Method %s\n", static_cast<int>(error->GetTick()),
                  error->GetModule(), error->GetMethod());
    mInfoHandler.HandleInfo(new Info(text, InfoLevel::ErrorReport));
  });
}

}  // namespace tolva
