#include "controls/ControlTextBox.h"
