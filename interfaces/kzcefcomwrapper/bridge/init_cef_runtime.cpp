// Hands the bridge out when the engine could be started.

#include "bridge/init_cef_runtime.h"

#include "runtime/startup.h"

namespace kzcef {

kzCefBridgeImpl* InitCefRuntime(HINSTANCE instance, IKZCEFComSettings* settings) {
  return StartCefRuntime(instance, settings) ? &BridgeSingleton() : nullptr;
}

}  // namespace kzcef
