#pragma once

#include "foundation/Semaphore.h"

namespace tolva {

// What the controller and the display share, and the lock that guards it: hold the semaphore for the whole of each use. The
// controller owns it; the display borrows its address.
class Repository : public Semaphore {};

}  // namespace tolva
