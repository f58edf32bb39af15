// include/internal/cef_types_wrappers.h of CEF 123, as far as it is used
// here: the API's C structures as C++ classes.
#pragma once

#include <cstring>
#include <limits>

#include "include/internal/cef_string.h"
#include "include/internal/cef_types.h"

// A C structure with texts in it as a C++ class: zeroed at first, copied deeply, freed at the end.
template <class traits>
class CefStructBase : public traits::struct_type {
 public:
  using struct_type = typename traits::struct_type;

  CefStructBase() { Init(); }
  CefStructBase(const CefStructBase& r) : CefStructBase() { *this = r; }
  CefStructBase(const struct_type& r) : CefStructBase() { *this = r; }
  virtual ~CefStructBase() {
    if (!attached_to_) {
      Clear(this);
    }
  }

  // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): as CEF declares it.
  CefStructBase& operator=(const CefStructBase& s) {
    return *this = static_cast<const struct_type&>(s);
  }
  CefStructBase& operator=(const struct_type& s) {
    Set(s, true);
    return *this;
  }

  // Uses the texts of |source| without owning them.
  void AttachTo(struct_type& source) {
    if (!attached_to_) {
      Clear(this);
    }
    attached_to_ = &source;
    static_cast<struct_type&>(*this) = source;
  }

  // Gives everything to |target| and starts anew.
  void DetachTo(struct_type& target) {
    if (attached_to_ != &target) {
      Clear(&target);
    }
    target = static_cast<struct_type&>(*this);
    Init();
  }

  // Without |copy| the texts still belong to |source|.
  void Set(const struct_type& source, bool copy) { traits::set(&source, this, copy); }

 protected:
  void Init() {
    static_cast<struct_type&>(*this) = {};
    attached_to_ = nullptr;
    traits::init(this);
  }
  static void Clear(struct_type* s) { traits::clear(s); }

  struct_type* attached_to_ = nullptr;
};

// The traits of a structure whose texts are the members |strings|; the rest is plain data.
template <class Struct, cef_string_t Struct::*... strings>
struct CefStructTraits {
  using struct_type = Struct;

  static void init(struct_type* s) {
    if constexpr (requires { s->size; }) {
      s->size = sizeof(struct_type);
    }
  }
  static void clear(struct_type* s) { (cef_string_clear(&(s->*strings)), ...); }
  static void set(const struct_type* src, struct_type* target, bool copy) {
    struct_type result = *src;
    if constexpr (requires { src->size; }) {
      result.size = target->size;
    }
    (SetString<strings>(src, target, &result, copy), ...);
    *target = result;
  }

 private:
  template <cef_string_t Struct::*string>
  static void SetString(const struct_type* src,
                        struct_type* target,
                        struct_type* result,
                        bool copy) {
    cef_string_set((src->*string).str, (src->*string).length, &(target->*string), copy);
    result->*string = target->*string;
  }
};

class CefPoint : public cef_point_t {
 public:
  CefPoint() : cef_point_t{} {}
  CefPoint(const cef_point_t& r) : cef_point_t(r) {}
  CefPoint(int x_val, int y_val) : cef_point_t{x_val, y_val} {}

  bool IsEmpty() const { return x <= 0 && y <= 0; }
  void Set(int x_val, int y_val) { *this = CefPoint(x_val, y_val); }
};

inline bool operator==(const CefPoint& a, const CefPoint& b) {
  return a.x == b.x && a.y == b.y;
}
inline bool operator!=(const CefPoint& a, const CefPoint& b) {
  return !(a == b);
}

class CefRect : public cef_rect_t {
 public:
  CefRect() : cef_rect_t{} {}
  CefRect(const cef_rect_t& r) : cef_rect_t(r) {}
  CefRect(int x_val, int y_val, int width_val, int height_val)
      : cef_rect_t{x_val, y_val, width_val, height_val} {}

  bool IsEmpty() const { return width <= 0 || height <= 0; }
  void Set(int x_val, int y_val, int width_val, int height_val) {
    *this = CefRect(x_val, y_val, width_val, height_val);
  }
  // The right and bottom edges are outside.
  bool Contains(int point_x, int point_y) const {
    return point_x >= x && point_x < x + width && point_y >= y && point_y < y + height;
  }
  bool Contains(const CefPoint& point) const { return Contains(point.x, point.y); }
};

inline bool operator==(const CefRect& a, const CefRect& b) {
  return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}
inline bool operator!=(const CefRect& a, const CefRect& b) {
  return !(a == b);
}

class CefSize : public cef_size_t {
 public:
  CefSize() : cef_size_t{} {}
  CefSize(const cef_size_t& r) : cef_size_t(r) {}
  CefSize(int width_val, int height_val) : cef_size_t{width_val, height_val} {}

  bool IsEmpty() const { return width <= 0 || height <= 0; }
  void Set(int width_val, int height_val) { *this = CefSize(width_val, height_val); }
};

inline bool operator==(const CefSize& a, const CefSize& b) {
  return a.width == b.width && a.height == b.height;
}
inline bool operator!=(const CefSize& a, const CefSize& b) {
  return !(a == b);
}

class CefDraggableRegion : public cef_draggable_region_t {
 public:
  CefDraggableRegion() : cef_draggable_region_t{} {}
  CefDraggableRegion(const cef_draggable_region_t& r) : cef_draggable_region_t(r) {}
  CefDraggableRegion(const cef_rect_t& bounds_val, bool draggable_val)
      : cef_draggable_region_t{bounds_val, draggable_val} {}

  void Set(const CefRect& bounds_val, bool draggable_val) {
    *this = CefDraggableRegion(bounds_val, draggable_val);
  }
};

inline bool operator==(const CefDraggableRegion& a, const CefDraggableRegion& b) {
  return CefRect(a.bounds) == CefRect(b.bounds) && a.draggable == b.draggable;
}
inline bool operator!=(const CefDraggableRegion& a, const CefDraggableRegion& b) {
  return !(a == b);
}

class CefKeyEvent : public cef_key_event_t {
 public:
  CefKeyEvent() : cef_key_event_t{} {}
  CefKeyEvent(const cef_key_event_t& r) : cef_key_event_t(r) {}
};

class CefMouseEvent : public cef_mouse_event_t {
 public:
  CefMouseEvent() : cef_mouse_event_t{} {}
  CefMouseEvent(const cef_mouse_event_t& r) : cef_mouse_event_t(r) {}
};

class CefPopupFeatures : public cef_popup_features_t {
 public:
  CefPopupFeatures() : cef_popup_features_t{} {}
  CefPopupFeatures(const cef_popup_features_t& r) : cef_popup_features_t(r) {}
};

class CefCursorInfo : public cef_cursor_info_t {
 public:
  CefCursorInfo() : cef_cursor_info_t{} {}
  CefCursorInfo(const cef_cursor_info_t& r) : cef_cursor_info_t(r) {}
};

struct CefSettingsTraits : CefStructTraits<cef_settings_t,
                                           &cef_settings_t::browser_subprocess_path,
                                           &cef_settings_t::framework_dir_path,
                                           &cef_settings_t::main_bundle_path,
                                           &cef_settings_t::cache_path,
                                           &cef_settings_t::root_cache_path,
                                           &cef_settings_t::user_agent,
                                           &cef_settings_t::user_agent_product,
                                           &cef_settings_t::locale,
                                           &cef_settings_t::log_file,
                                           &cef_settings_t::javascript_flags,
                                           &cef_settings_t::resources_dir_path,
                                           &cef_settings_t::locales_dir_path,
                                           &cef_settings_t::accept_language_list,
                                           &cef_settings_t::cookieable_schemes_list,
                                           &cef_settings_t::chrome_policy_id> {};
using CefSettings = CefStructBase<CefSettingsTraits>;

struct CefBrowserSettingsTraits : CefStructTraits<cef_browser_settings_t,
                                                  &cef_browser_settings_t::standard_font_family,
                                                  &cef_browser_settings_t::fixed_font_family,
                                                  &cef_browser_settings_t::serif_font_family,
                                                  &cef_browser_settings_t::sans_serif_font_family,
                                                  &cef_browser_settings_t::cursive_font_family,
                                                  &cef_browser_settings_t::fantasy_font_family,
                                                  &cef_browser_settings_t::default_encoding> {};
using CefBrowserSettings = CefStructBase<CefBrowserSettingsTraits>;

struct CefURLPartsTraits : CefStructTraits<cef_urlparts_t,
                                           &cef_urlparts_t::spec,
                                           &cef_urlparts_t::scheme,
                                           &cef_urlparts_t::username,
                                           &cef_urlparts_t::password,
                                           &cef_urlparts_t::host,
                                           &cef_urlparts_t::port,
                                           &cef_urlparts_t::origin,
                                           &cef_urlparts_t::path,
                                           &cef_urlparts_t::query,
                                           &cef_urlparts_t::fragment> {};
using CefURLParts = CefStructBase<CefURLPartsTraits>;

struct CefCookieTraits : CefStructTraits<cef_cookie_t,
                                         &cef_cookie_t::name,
                                         &cef_cookie_t::value,
                                         &cef_cookie_t::domain,
                                         &cef_cookie_t::path> {};
using CefCookie = CefStructBase<CefCookieTraits>;
