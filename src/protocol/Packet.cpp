#include "protocol/Packet.h"

namespace tolva {

Packet* Packet::Clone() const { return new Packet(*this); }

}  // namespace tolva
