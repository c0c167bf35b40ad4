#pragma once

// Media hands out surfaces with the owner that all of the client shares.
#include "foundation/SurfacePtr.h"
