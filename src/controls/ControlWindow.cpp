#include "controls/ControlWindow.h"
