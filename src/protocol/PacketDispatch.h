#pragma once

#include <functional>
#include <type_traits>
#include <utility>

#include "protocol/Packet.h"
#include "protocol/PacketList.h"

namespace tolva {

// A handler that treats packets of several classes alike.
template <typename Body, typename... Packets>
struct AnyOfHandler {
  using Classes = TypeList<Packets...>;
  Body body;
};

// Makes such a handler. `body` takes a packet of any of these classes as a Packet.
template <typename... Packets, typename Body>
AnyOfHandler<Body, Packets...> ForAnyOf(Body body) {
  return {std::move(body)};
}

namespace packet_dispatch {

template <typename Operation>
struct ParameterOf;
template <typename Owner, typename Result, typename Parameter>
struct ParameterOf<Result (Owner::*)(Parameter)> : std::remove_cvref<Parameter> {};
template <typename Owner, typename Result, typename Parameter>
struct ParameterOf<Result (Owner::*)(Parameter) const> : std::remove_cvref<Parameter> {};

// The classes that a handler takes: those of ForAnyOf, else that of a callable's one parameter.
template <typename Handler>
struct ClassesOf {
  using Type = TypeList<typename ParameterOf<decltype(&Handler::operator())>::type>;
};
template <typename Body, typename... Packets>
struct ClassesOf<AnyOfHandler<Body, Packets...>> {
  using Type = TypeList<Packets...>;
};

template <typename Handler, typename PacketType>
decltype(auto) Call(Handler& handler, PacketType& packet) {
  if constexpr (requires { handler.body; }) {
    return handler.body(packet);
  } else {
    return handler(packet);
  }
}

template <typename PacketType, typename Handler, typename... Packets, typename Found>
bool TryHandler(PacketType& packet, Handler& handler, TypeList<Packets...>, Found&& found) {
  const auto tryClass = [&](auto* typed) {
    if (typed != nullptr) found([&]() -> decltype(auto) { return Call(handler, *typed); });
    return typed != nullptr;
  };
  return (tryClass(PacketCast<Packets>(&packet)) || ...);
}

}  // namespace packet_dispatch

// Gives the packet to the first of `handlers` that takes its class, as that class, and returns what the handler
// returns; `otherwise` when there is none. A handler is a callable with one parameter, a reference to a packet class,
// or the result of ForAnyOf. A packet whose code and class disagree reaches no handler.
template <typename Result, typename PacketType, typename... Handlers>
Result DispatchOr(Result otherwise, PacketType& packet, Handlers&&... handlers) {
  using namespace packet_dispatch;
  Result result = std::move(otherwise);
  const auto keep = [&](auto&& call) { result = call(); };
  static_cast<void>(
      (TryHandler(packet, handlers, typename ClassesOf<std::remove_cvref_t<Handlers>>::Type{}, keep) || ...));
  return result;
}

// The same for handlers that return nothing. Returns whether one took the packet.
template <typename PacketType, typename... Handlers>
bool Dispatch(PacketType& packet, Handlers&&... handlers) {
  using namespace packet_dispatch;
  const auto run = [](auto&& call) { call(); };
  return (TryHandler(packet, handlers, typename ClassesOf<std::remove_cvref_t<Handlers>>::Type{}, run) || ...);
}

}  // namespace tolva
