#include "controls/ControlLabel.h"
