// Pictures of the host's windows, taken from the screen: what a person would see.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kzhost {

struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bgra;  // rows from the top, no padding

  COLORREF At(int x, int y) const;
  // Returns whether every pixel has the same colour.
  bool IsUniform() const;
};

// Returns the client area of `window` as it is on the screen; what lies outside the screen is
// black. The picture is empty when Windows refuses.
Picture TakePicture(HWND window);

// Writes a PNG file. COM must be initialised on the calling thread.
HRESULT SavePng(const Picture& picture, const std::wstring& path);

}  // namespace kzhost
