// include/internal/cef_types_geometry.h of CEF 123, as far as it is used
// here: points, rectangles, sizes and insets.
#pragma once

extern "C" {

typedef struct _cef_point_t {
  int x;
  int y;
} cef_point_t;

typedef struct _cef_rect_t {
  int x;
  int y;
  int width;
  int height;
} cef_rect_t;

typedef struct _cef_size_t {
  int width;
  int height;
} cef_size_t;

typedef struct _cef_insets_t {
  int top;
  int left;
  int bottom;
  int right;
} cef_insets_t;

}  // extern "C"
