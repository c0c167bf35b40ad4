#pragma once

#include <cstddef>
#include <cstdint>
#include <tuple>

#include "protocol/PacketField.h"

namespace tolva {

// The fewest bytes that a field takes on the wire. Only texts can take more: here each is empty, its length and its
// terminating zero. So one comparison tells that all of a packet's numbers and grids lie within a record.
template <typename Member>
constexpr std::uint32_t kLeastWireSize = sizeof(Member);
template <typename T>
constexpr std::uint32_t kLeastWireSize<T*> = 0;
template <std::size_t Capacity>
constexpr std::uint32_t kLeastWireSize<char[Capacity]> = 4 + 1;
template <>
constexpr std::uint32_t kLeastWireSize<NameList> = 4 + kUserListCapacity* kLeastWireSize<char[kUserNameCapacity]>;
template <typename T>
constexpr std::uint32_t kLeastWireSize<AreaGrid<T>> = 4 + 4 + sizeof(AreaGrid<T>);

// The fewest bytes that all fields of a packet class take.
template <typename PacketType>
constexpr std::uint32_t LeastBodySize() {
  const auto sum = []<typename... Owner, typename... Member>(const PacketField<Owner, Member>&...) {
    return (kLeastWireSize<Member> + ... + 0U);
  };
  return std::apply(sum, PacketType::Fields());
}

}  // namespace tolva
