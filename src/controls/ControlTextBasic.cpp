#include "controls/ControlTextBasic.h"
