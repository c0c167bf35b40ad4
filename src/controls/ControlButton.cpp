#include "controls/ControlButton.h"
