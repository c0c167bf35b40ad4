#include "controls/ControlScrollbar.h"
