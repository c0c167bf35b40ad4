#pragma once

#include <utility>

#include "foundation/ErrHandler.h"
#include "foundation/Error.h"

namespace tolva {

// Runs `body` so that nothing but an `Error*` leaves it. An Error passes unchanged, so that it keeps naming the
// innermost operation that saw the failure; any other exception becomes a new Error of this module and method. Returns
// what `body` returns.
template <typename Body>
decltype(auto) Guard(const char* module, const char* method, const char* message, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (Error*) {
    throw;
  } catch (...) {
    throw new Error(module, method, message);
  }
}

template <typename Body>
decltype(auto) Guard(const char* module, const char* method, Body&& body) {
  return Guard(module, method, "", std::forward<Body>(body));
}

// The guard of the control toolkit, whose foreign exceptions carry a message.
template <typename Body>
decltype(auto) GuardControl(const char* module, const char* method, Body&& body) {
  return Guard(module, method, "Runtime Error", std::forward<Body>(body));
}

// Runs `body` and ends the travel of whatever it throws: the error goes to `handler`. For the few places where errors
// stop: thread entries, passes of a thread loop, constructors and destructors of thread objects. Returns whether `body`
// ended without an error. Never throws itself: a report that fails is dropped, because there is nobody left to tell.
template <typename Body>
bool Report(ErrHandler& handler, const char* module, const char* method, Body&& body) noexcept {
  try {
    try {
      Guard(module, method, std::forward<Body>(body));
      return true;
    } catch (Error* error) {
      handler.HandleError(error);
    }
  } catch (Error* error) {
    delete error;
  } catch (...) {
  }
  return false;
}

}  // namespace tolva
