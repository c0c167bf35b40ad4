#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "protocol/Capacities.h"
#include "protocol/WorldEdges.h"

namespace tolva {

// One entry of a packet class's field list: the name for text forms, and the member, whose type decides how the field
// looks on the wire:
//   std::uint32_t, Direction   4 bytes, big-endian
//   std::uint16_t              2 bytes, big-endian
//   std::uint8_t, std::int8_t  1 byte; the signed one is a map level
//   char[N]                    length with its terminating zero (4 bytes), then that many bytes; at most N
//   NameList                   the number of names (4 bytes), then each as a text; not shown in text forms
//   AreaGrid<T>                the two dimensions (4 bytes each), then the values; not shown in text forms
//   pointers                   never on the wire; shown as addresses
template <typename Owner, typename Member>
struct PacketField {
  const char* name;
  Member Owner::*member;
};

template <typename Owner, typename Member>
PacketField(const char*, Member Owner::*) -> PacketField<Owner, Member>;

// One value for each field of an area; the value of field (Fx, Fy) stands at Fx * kAreaEdge + Fy.
template <typename T>
using AreaGrid = std::array<T, kAreaFields>;

using NameList = char[kUserListCapacity][kUserNameCapacity];

}  // namespace tolva
