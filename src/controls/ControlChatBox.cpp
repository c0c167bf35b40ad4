#include "controls/ControlChatBox.h"
