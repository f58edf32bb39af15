// What the binding itself has to say: in the engine's log.
#pragma once

#include <exception>
#include <type_traits>

namespace cefbinding {

// Writes one line as an error, to the engine's log where there is an engine, else to the debugger.
// `detail` follows `message`. Any thread.
void LogError(const char* message, const char* detail = "") noexcept;

// Calls `function`. An exception ends here: it is logged, and the result is zero.
template <class Function>
std::invoke_result_t<Function> Contain(Function function) noexcept {
  using Result = std::invoke_result_t<Function>;
  try {
    return function();
  } catch (const std::exception& error) {
    LogError("a callback threw: ", error.what());
  } catch (...) {
    LogError("a callback threw");
  }
  if constexpr (!std::is_void_v<Result>) {
    return Result();
  }
}

}  // namespace cefbinding
