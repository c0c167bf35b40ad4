#include "controls/ControlBasic.h"
