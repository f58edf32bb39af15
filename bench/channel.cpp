#include "channel.h"

#include <stdexcept>

namespace kzbench {

Channel::Channel(const std::wstring& name)
    : mapping_(CreateFileMappingW(INVALID_HANDLE_VALUE,
                                  nullptr,
                                  PAGE_READWRITE,
                                  0,
                                  sizeof(Exchange),
                                  (name + L"-exchange").c_str())),
      exchange_(static_cast<Exchange*>(
          mapping_ ? MapViewOfFile(mapping_.get(), FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Exchange))
                   : nullptr)),
      asked_(MakeEvent((name + L"-asked").c_str())),
      answered_(MakeEvent((name + L"-answered").c_str())) {
  if (!exchange_)
    throw std::runtime_error("cannot share memory");
}

Channel::~Channel() {
  UnmapViewOfFile(exchange_);
}

}  // namespace kzbench
