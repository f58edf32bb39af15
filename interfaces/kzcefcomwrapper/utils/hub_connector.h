// The local hub: a proxy on the loopback interface that a host installation may run.
#pragma once

namespace kzcef {

// Whether the host gave a hub port. The first query fixes the answer for the life of the process,
// so nobody may ask before start-up has read the host's settings. Any thread.
bool IsHubOn();

// The port that the host gave, 0 or more; -1 without one. Any thread.
int GetHubPort();

}  // namespace kzcef
