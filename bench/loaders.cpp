#include "loaders.h"

#include "measure.h"

namespace kzbench {

double TimeLoad(Loader& loader, const std::wstring& url) {
  const double taken = TimePerCall(1, [&](int) { loader.Load(url); });
  loader.Load(L"about:blank");
  return taken;
}

}  // namespace kzbench
