#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <typeinfo>

#include "protocol/PacketField.h"

namespace tolva {

class Mailbox;

using PacketCode = std::uint32_t;

// What threads send each other, and the client and the server. The sender makes it; it has one owner at a time: the
// sender, then the mailbox, then whoever takes it out. Threads never share one.
//
// Each class lists its fields once, in Fields(); wire format, text form and tests follow from that list.
struct Packet {
  static constexpr PacketCode kCode = 0;
  static constexpr const char* kName = "Packet";

  Packet() = default;
  virtual ~Packet() = default;
  // Copies the packet, its class and its source included. The caller owns the copy.
  virtual Packet* Clone() const;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mEnmCode", &Packet::mEnmCode}, PacketField{"mObjSource", &Packet::mObjSource}};
  }

  // Names the class but does not prove it: a plain Packet read from the wire carries any code its sender wrote. Use
  // PacketCast to get to a derived class.
  PacketCode mEnmCode = kCode;
  // The mailbox of the last sender, set by ManagerThread::SendMail; null in a new packet and in one from the wire. Not
  // owned.
  Mailbox* mObjSource = nullptr;

 protected:
  explicit Packet(PacketCode code) : mEnmCode(code) {}
  Packet(const Packet&) = default;
  Packet& operator=(const Packet&) = delete;
};

// A packet's name as a template argument.
template <std::size_t Size>
struct PacketName {
  constexpr PacketName(const char (&text)[Size]) { std::copy_n(text, Size, value); }  // converts a literal
  char value[Size];
};

// The base of every packet class: gives it its code, its name, Clone, and an empty field list to replace.
template <typename Derived, PacketCode Code, PacketName Name>
struct PacketOf : Packet {
  static constexpr PacketCode kCode = Code;
  static constexpr const char* kName = Name.value;

  PacketOf() : Packet(Code) {}
  Packet* Clone() const override { return new Derived(static_cast<const Derived&>(*this)); }

  static constexpr auto Fields() { return std::tuple{}; }
};

// The only way from a Packet to a derived class. Null unless code and class are both T's.
template <typename T>
T* PacketCast(Packet* packet) {
  const bool isOne = packet != nullptr && packet->mEnmCode == T::kCode && typeid(*packet) == typeid(T);
  return isOne ? static_cast<T*>(packet) : nullptr;
}

template <typename T>
const T* PacketCast(const Packet* packet) {
  return PacketCast<T>(const_cast<Packet*>(packet));
}

}  // namespace tolva
