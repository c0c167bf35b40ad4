#pragma once

#include <utility>

#include "foundation/ErrHandler.h"
#include "foundation/Error.h"

namespace tolva {

// Module and method texts, like log lines, are an interface: people search logs and match them with scripts. So they
// stay as they are, odd spellings ("Recieved") and names that differ from the operation they stand in ("WriteIni" in
// Ini::Save, "OpenAudio" in SoundManager::InitAudio) included. Do not correct them.

// Runs `body` and lets only an `Error*` leave it. An Error passes unchanged, so it names the innermost operation that
// saw the failure; any other exception becomes a new Error of this module and method. Returns what `body` returns.
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

// The guard of the control toolkit, which gives such a new Error a message.
template <typename Body>
decltype(auto) GuardControl(const char* module, const char* method, Body&& body) {
  return Guard(module, method, "Runtime Error", std::forward<Body>(body));
}

// Runs `body` and reports whatever it throws to `handler`. For the few places where errors stop: thread entries, passes
// of a thread loop, constructors and destructors of thread objects. Returns whether `body` succeeded. Never throws: an
// error in reporting is dropped, because nobody is left to report it to.
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
