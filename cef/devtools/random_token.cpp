#include "devtools/random_token.h"

#include <windows.h>

#include <bcrypt.h>

#include <array>

namespace cefedition {

std::string MakeToken() {
  std::array<unsigned char, 16> bytes = {};
  BCryptGenRandom(nullptr, bytes.data(), static_cast<ULONG>(bytes.size()),
                  BCRYPT_USE_SYSTEM_PREFERRED_RNG);
  std::string token;
  for (unsigned char byte : bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    token += kDigits[byte >> 4];
    token += kDigits[byte & 15];
  }
  return token;
}

}  // namespace cefedition
