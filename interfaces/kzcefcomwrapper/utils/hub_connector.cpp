#include "utils/hub_connector.h"

#include "utils/process_settings.h"

namespace kzcef {

bool IsHubOn() {
  static const bool is_on = GetHubPort() >= 0;
  return is_on;
}

int GetHubPort() {
  return ConfiguredHubPort();
}

}  // namespace kzcef
