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

// A message between threads and over the wire. Created with `new` by its sender; a mailbox or a call that takes it over
// owns it, and whoever takes it out of a mailbox deletes it or passes it on. Never shared between threads.
//
// Each class lists its fields once, in Fields(): the wire format, text form and comparison follow from that list.
struct Packet {
  static constexpr PacketCode kCode = 0;
  static constexpr const char* kName = "Packet";

  Packet() = default;
  virtual ~Packet() = default;
  // A new packet of the same class with equal fields, source included; the caller owns it.
  virtual Packet* Clone() const;

  static constexpr auto Fields() {
    return std::tuple{PacketField{"mEnmCode", &Packet::mEnmCode}, PacketField{"mObjSource", &Packet::mObjSource}};
  }

  // Tells the class, but proves nothing: a plain Packet read from the wire carries whatever code its sender wrote. The
  // way to a derived class is PacketCast.
  PacketCode mEnmCode = kCode;
  // The mailbox of the last sender (ManagerThread::SendMail stamps it); null when constructed and when read from the
  // wire.
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

// What every derived packet class has: its code, its name, Clone, and an empty field list to be replaced.
template <typename Derived, PacketCode Code, PacketName Name>
struct PacketOf : Packet {
  static constexpr PacketCode kCode = Code;
  static constexpr const char* kName = Name.value;

  PacketOf() : Packet(Code) {}
  Packet* Clone() const override { return new Derived(static_cast<const Derived&>(*this)); }

  static constexpr auto Fields() { return std::tuple{}; }
};

// The only way from a Packet to a derived class: null unless both the code and the class are T's.
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
