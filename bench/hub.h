// The hub for the benchmarks: whether it is on is fixed once in a process.
#pragma once

#include "hub_plan.h"

namespace kzbench {

// Turns the hub on, at `port`, and binds the tests' hub library, whose plan is answered. To be
// called before anybody asks whether the hub is on. Throws std::runtime_error when it stays off.
kzhub::Plan& TurnHubOn(int port);

}  // namespace kzbench
