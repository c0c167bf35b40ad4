#include "controls/ControlListBox.h"
