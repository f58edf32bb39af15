#include "include/cef_version.h"

#include <iterator>

int cef_version_info(int entry) {
  constexpr int kNumbers[] = {
      CEF_VERSION_MAJOR,    CEF_VERSION_MINOR,    CEF_VERSION_PATCH,    0,
      CHROME_VERSION_MAJOR, CHROME_VERSION_MINOR, CHROME_VERSION_BUILD, CHROME_VERSION_PATCH};
  return entry >= 0 && entry < static_cast<int>(std::size(kNumbers)) ? kNumbers[entry] : 0;
}
