#pragma once

#include <cstdint>

namespace cefedition {

// The window messages that carry input, by Windows' numbers: the translation also compiles where
// there is no windows.h. view_window.cpp checks them against it.
inline constexpr uint32_t kWmKeyDown = 0x0100;
inline constexpr uint32_t kWmKeyUp = 0x0101;
inline constexpr uint32_t kWmChar = 0x0102;
inline constexpr uint32_t kWmSysKeyDown = 0x0104;
inline constexpr uint32_t kWmSysKeyUp = 0x0105;
inline constexpr uint32_t kWmUniChar = 0x0109;
inline constexpr uint32_t kWmImeChar = 0x0286;
inline constexpr uint32_t kWmMouseMove = 0x0200;
inline constexpr uint32_t kWmLButtonDown = 0x0201;
inline constexpr uint32_t kWmLButtonUp = 0x0202;
inline constexpr uint32_t kWmLButtonDblClk = 0x0203;
inline constexpr uint32_t kWmRButtonDown = 0x0204;
inline constexpr uint32_t kWmRButtonUp = 0x0205;
inline constexpr uint32_t kWmRButtonDblClk = 0x0206;
inline constexpr uint32_t kWmMButtonDown = 0x0207;
inline constexpr uint32_t kWmMButtonUp = 0x0208;
inline constexpr uint32_t kWmMButtonDblClk = 0x0209;
inline constexpr uint32_t kWmMouseWheel = 0x020A;
inline constexpr uint32_t kWmXButtonDown = 0x020B;
inline constexpr uint32_t kWmXButtonUp = 0x020C;
inline constexpr uint32_t kWmXButtonDblClk = 0x020D;
inline constexpr uint32_t kWmMouseHWheel = 0x020E;
inline constexpr uint32_t kWmMouseLeave = 0x02A3;

}  // namespace cefedition
