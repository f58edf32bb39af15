// include/internal/cef_types.h of CEF 123, as far as it is used here:
// the API's enumerations and C structures.
#pragma once

#include <limits.h>
#include <stddef.h>
#include <stdint.h>

#include "include/internal/cef_string.h"
#include "include/internal/cef_time.h"
#include "include/internal/cef_types_geometry.h"
#include "include/internal/cef_types_win.h"

// A colour as 0xAARRGGBB, not premultiplied.
typedef uint32_t cef_color_t;

#define CefColorGetA(color) (((color) >> 24) & 0xFF)
#define CefColorGetR(color) (((color) >> 16) & 0xFF)
#define CefColorGetG(color) (((color) >> 8) & 0xFF)
#define CefColorGetB(color) ((color)&0xFF)
#define CefColorSetARGB(a, r, g, b)                                                              \
  static_cast<cef_color_t>((static_cast<unsigned>(a) << 24) | (static_cast<unsigned>(r) << 16) | \
                           (static_cast<unsigned>(g) << 8) | static_cast<unsigned>(b))

// 64-bit integers as two 32-bit halves, for values that hold no 64-bit type.
#define CefInt64Set(int32_low, int32_high)                  \
  static_cast<int64_t>((static_cast<uint32_t>(int32_low)) | \
                       (static_cast<int64_t>(static_cast<int32_t>(int32_high))) << 32)
#define CefInt64GetLow(int64_val) static_cast<int32_t>(int64_val)
#define CefInt64GetHigh(int64_val) \
  static_cast<int32_t>((static_cast<int64_t>(int64_val) >> 32) & 0xFFFFFFFFL)

extern "C" {

// Severity of a log line; LOGSEVERITY_DISABLE keeps the log empty.
typedef enum {
  LOGSEVERITY_DEFAULT,
  LOGSEVERITY_VERBOSE,
  LOGSEVERITY_DEBUG = LOGSEVERITY_VERBOSE,
  LOGSEVERITY_INFO,
  LOGSEVERITY_WARNING,
  LOGSEVERITY_ERROR,
  LOGSEVERITY_FATAL,
  LOGSEVERITY_DISABLE = 99
} cef_log_severity_t;

// What each log line starts with.
typedef enum {
  LOG_ITEMS_DEFAULT = 0,
  LOG_ITEMS_NONE = 1,
  LOG_ITEMS_FLAG_PROCESS_ID = 1 << 1,
  LOG_ITEMS_FLAG_THREAD_ID = 1 << 2,
  LOG_ITEMS_FLAG_TIME_STAMP = 1 << 3,
  LOG_ITEMS_FLAG_TICK_COUNT = 1 << 4,
} cef_log_items_t;

// A setting that may be left to its default.
typedef enum {
  STATE_DEFAULT = 0,
  STATE_ENABLED,
  STATE_DISABLED,
} cef_state_t;

// Process-wide settings. Empty texts and zeros stand for the defaults; |size| is set by
// CefSettings. Paths are absolute; remote_debugging_port is 1024 to 65535.
typedef struct _cef_settings_t {
  size_t size;
  int no_sandbox;
  cef_string_t browser_subprocess_path;
  cef_string_t framework_dir_path;
  cef_string_t main_bundle_path;
  int chrome_runtime;
  int multi_threaded_message_loop;
  int external_message_pump;
  int windowless_rendering_enabled;
  int command_line_args_disabled;
  cef_string_t cache_path;
  cef_string_t root_cache_path;
  int persist_session_cookies;
  int persist_user_preferences;
  cef_string_t user_agent;
  cef_string_t user_agent_product;
  cef_string_t locale;
  cef_string_t log_file;
  cef_log_severity_t log_severity;
  cef_log_items_t log_items;
  cef_string_t javascript_flags;
  cef_string_t resources_dir_path;
  cef_string_t locales_dir_path;
  int pack_loading_disabled;
  int remote_debugging_port;
  int uncaught_exception_stack_size;
  cef_color_t background_color;
  cef_string_t accept_language_list;
  cef_string_t cookieable_schemes_list;
  int cookieable_schemes_exclude_defaults;
  cef_string_t chrome_policy_id;
  int chrome_app_icon_id;
} cef_settings_t;

// Settings of a request context.
typedef struct _cef_request_context_settings_t {
  size_t size;
  cef_string_t cache_path;
  int persist_session_cookies;
  int persist_user_preferences;
  cef_string_t accept_language_list;
  cef_string_t cookieable_schemes_list;
  int cookieable_schemes_exclude_defaults;
} cef_request_context_settings_t;

// Settings of one browser. Sizes are in CSS pixels.
typedef struct _cef_browser_settings_t {
  size_t size;
  int windowless_frame_rate;
  cef_string_t standard_font_family;
  cef_string_t fixed_font_family;
  cef_string_t serif_font_family;
  cef_string_t sans_serif_font_family;
  cef_string_t cursive_font_family;
  cef_string_t fantasy_font_family;
  int default_font_size;
  int default_fixed_font_size;
  int minimum_font_size;
  int minimum_logical_font_size;
  cef_string_t default_encoding;
  cef_state_t remote_fonts;
  cef_state_t javascript;
  cef_state_t javascript_close_windows;
  cef_state_t javascript_access_clipboard;
  cef_state_t javascript_dom_paste;
  cef_state_t image_loading;
  cef_state_t image_shrink_standalone_to_fit;
  cef_state_t text_area_resize;
  cef_state_t tab_to_links;
  cef_state_t local_storage;
  cef_state_t databases;
  cef_state_t webgl;
  cef_color_t background_color;
  cef_state_t chrome_status_bubble;
  cef_state_t chrome_zoom_bubble;
} cef_browser_settings_t;

// Whether a request goes on.
typedef enum {
  RV_CANCEL = 0,
  RV_CONTINUE,
  RV_CONTINUE_ASYNC,
} cef_return_value_t;

// The parts of a URL.
typedef struct _cef_urlparts_t {
  cef_string_t spec;
  cef_string_t scheme;
  cef_string_t username;
  cef_string_t password;
  cef_string_t host;
  cef_string_t port;
  cef_string_t origin;
  cef_string_t path;
  cef_string_t query;
  cef_string_t fragment;
} cef_urlparts_t;

// Priority of a cookie.
typedef enum {
  CEF_COOKIE_PRIORITY_LOW = -1,
  CEF_COOKIE_PRIORITY_MEDIUM = 0,
  CEF_COOKIE_PRIORITY_HIGH = 1,
} cef_cookie_priority_t;

// The SameSite attribute of a cookie.
typedef enum {
  CEF_COOKIE_SAME_SITE_UNSPECIFIED,
  CEF_COOKIE_SAME_SITE_NO_RESTRICTION,
  CEF_COOKIE_SAME_SITE_LAX_MODE,
  CEF_COOKIE_SAME_SITE_STRICT_MODE,
} cef_cookie_same_site_t;

// A cookie. |creation| and |last_access| are read-only; |expires| counts if |has_expires|.
typedef struct _cef_cookie_t {
  cef_string_t name;
  cef_string_t value;
  cef_string_t domain;
  cef_string_t path;
  int secure;
  int httponly;
  cef_basetime_t creation;
  cef_basetime_t last_access;
  int has_expires;
  cef_basetime_t expires;
  cef_cookie_same_site_t same_site;
  cef_cookie_priority_t priority;
} cef_cookie_t;

// How a renderer process ended.
typedef enum {
  TS_ABNORMAL_TERMINATION,
  TS_PROCESS_WAS_KILLED,
  TS_PROCESS_CRASHED,
  TS_PROCESS_OOM,
} cef_termination_status_t;

// Network errors, negative, as the browser numbers them.
typedef enum {
  ERR_NONE = 0,
// NOLINTNEXTLINE(bugprone-macro-parentheses): as CEF declares it.
#define NET_ERROR(label, value) ERR_##label = value,
#include "include/base/internal/cef_net_error_list.h"
#undef NET_ERROR
} cef_errorcode_t;

// What is wrong with (or known about) a certificate.
typedef enum {
  CERT_STATUS_NONE = 0,
  CERT_STATUS_COMMON_NAME_INVALID = 1 << 0,
  CERT_STATUS_DATE_INVALID = 1 << 1,
  CERT_STATUS_AUTHORITY_INVALID = 1 << 2,
  CERT_STATUS_NO_REVOCATION_MECHANISM = 1 << 4,
  CERT_STATUS_UNABLE_TO_CHECK_REVOCATION = 1 << 5,
  CERT_STATUS_REVOKED = 1 << 6,
  CERT_STATUS_INVALID = 1 << 7,
  CERT_STATUS_WEAK_SIGNATURE_ALGORITHM = 1 << 8,
  CERT_STATUS_NON_UNIQUE_NAME = 1 << 10,
  CERT_STATUS_WEAK_KEY = 1 << 11,
  CERT_STATUS_PINNED_KEY_MISSING = 1 << 13,
  CERT_STATUS_NAME_CONSTRAINT_VIOLATION = 1 << 14,
  CERT_STATUS_VALIDITY_TOO_LONG = 1 << 15,
  CERT_STATUS_IS_EV = 1 << 16,
  CERT_STATUS_REV_CHECKING_ENABLED = 1 << 17,
  CERT_STATUS_SHA1_SIGNATURE_PRESENT = 1 << 19,
  CERT_STATUS_CT_COMPLIANCE_FAILED = 1 << 20,
} cef_cert_status_t;

// Where a page wants a link or window opened.
typedef enum {
  CEF_WOD_UNKNOWN,
  CEF_WOD_CURRENT_TAB,
  CEF_WOD_SINGLETON_TAB,
  CEF_WOD_NEW_FOREGROUND_TAB,
  CEF_WOD_NEW_BACKGROUND_TAB,
  CEF_WOD_NEW_POPUP,
  CEF_WOD_NEW_WINDOW,
  CEF_WOD_SAVE_TO_DISK,
  CEF_WOD_OFF_THE_RECORD,
  CEF_WOD_IGNORE_ACTION,
  CEF_WOD_SWITCH_TO_TAB,
  CEF_WOD_NEW_PICTURE_IN_PICTURE,
  CEF_WOD_MAX_VALUE = CEF_WOD_NEW_PICTURE_IN_PICTURE,
} cef_window_open_disposition_t;

// What may be done with dragged data.
typedef enum {
  DRAG_OPERATION_NONE = 0,
  DRAG_OPERATION_COPY = 1,
  DRAG_OPERATION_LINK = 2,
  DRAG_OPERATION_GENERIC = 4,
  DRAG_OPERATION_PRIVATE = 8,
  DRAG_OPERATION_MOVE = 16,
  DRAG_OPERATION_DELETE = 32,
  DRAG_OPERATION_EVERY = UINT_MAX
} cef_drag_operations_mask_t;

// The keyboard that a field asks for.
typedef enum {
  CEF_TEXT_INPUT_MODE_DEFAULT,
  CEF_TEXT_INPUT_MODE_NONE,
  CEF_TEXT_INPUT_MODE_TEXT,
  CEF_TEXT_INPUT_MODE_TEL,
  CEF_TEXT_INPUT_MODE_URL,
  CEF_TEXT_INPUT_MODE_EMAIL,
  CEF_TEXT_INPUT_MODE_NUMERIC,
  CEF_TEXT_INPUT_MODE_DECIMAL,
  CEF_TEXT_INPUT_MODE_SEARCH,
  CEF_TEXT_INPUT_MODE_MAX = CEF_TEXT_INPUT_MODE_SEARCH,
} cef_text_input_mode_t;

// What an element of a request body holds.
typedef enum {
  PDE_TYPE_EMPTY = 0,
  PDE_TYPE_BYTES,
  PDE_TYPE_FILE,
} cef_postdataelement_type_t;

// What a request is for.
typedef enum {
  RT_MAIN_FRAME = 0,
  RT_SUB_FRAME,
  RT_STYLESHEET,
  RT_SCRIPT,
  RT_IMAGE,
  RT_FONT_RESOURCE,
  RT_SUB_RESOURCE,
  RT_OBJECT,
  RT_MEDIA,
  RT_WORKER,
  RT_SHARED_WORKER,
  RT_PREFETCH,
  RT_FAVICON,
  RT_XHR,
  RT_PING,
  RT_SERVICE_WORKER,
  RT_CSP_REPORT,
  RT_PLUGIN_RESOURCE,
  RT_NAVIGATION_PRELOAD_MAIN_FRAME = 19,
  RT_NAVIGATION_PRELOAD_SUB_FRAME,
} cef_resource_type_t;

// How a page was reached: a source in the low byte, qualifiers above it.
typedef enum {
  TT_LINK = 0,
  TT_EXPLICIT = 1,
  TT_AUTO_BOOKMARK = 2,
  TT_AUTO_SUBFRAME = 3,
  TT_MANUAL_SUBFRAME = 4,
  TT_GENERATED = 5,
  TT_AUTO_TOPLEVEL = 6,
  TT_FORM_SUBMIT = 7,
  TT_RELOAD = 8,
  TT_KEYWORD = 9,
  TT_KEYWORD_GENERATED = 10,
  TT_SOURCE_MASK = 0xFF,
  TT_BLOCKED_FLAG = 0x00800000,
  TT_FORWARD_BACK_FLAG = 0x01000000,
  TT_DIRECT_LOAD_FLAG = 0x02000000,
  TT_HOME_PAGE_FLAG = 0x04000000,
  TT_FROM_API_FLAG = 0x08000000,
  TT_CHAIN_START_FLAG = 0x10000000,
  TT_CHAIN_END_FLAG = 0x20000000,
  TT_CLIENT_REDIRECT_FLAG = 0x40000000,
  TT_SERVER_REDIRECT_FLAG = 0x80000000,
  TT_IS_REDIRECT_MASK = 0xC0000000,
  TT_QUALIFIER_MASK = 0xFFFFFF00,
} cef_transition_type_t;

// Flags of a request.
typedef enum {
  UR_FLAG_NONE = 0,
  UR_FLAG_SKIP_CACHE = 1 << 0,
  UR_FLAG_ONLY_FROM_CACHE = 1 << 1,
  UR_FLAG_DISABLE_CACHE = 1 << 2,
  UR_FLAG_ALLOW_STORED_CREDENTIALS = 1 << 3,
  UR_FLAG_REPORT_UPLOAD_PROGRESS = 1 << 4,
  UR_FLAG_NO_DOWNLOAD_DATA = 1 << 5,
  UR_FLAG_NO_RETRY_ON_5XX = 1 << 6,
  UR_FLAG_STOP_ON_REDIRECT = 1 << 7,
} cef_urlrequest_flags_t;

// How a request ended.
typedef enum {
  UR_UNKNOWN = 0,
  UR_SUCCESS,
  UR_IO_PENDING,
  UR_CANCELED,
  UR_FAILED,
} cef_urlrequest_status_t;

// A region by which the window can (or cannot) be dragged.
typedef struct _cef_draggable_region_t {
  cef_rect_t bounds;
  int draggable;
} cef_draggable_region_t;

// The two ends of a process message.
typedef enum {
  PID_BROWSER,
  PID_RENDERER,
} cef_process_id_t;

// The engine's threads.
typedef enum {
  TID_UI,
  TID_FILE_BACKGROUND,
  TID_FILE_USER_VISIBLE,
  TID_FILE_USER_BLOCKING,
  TID_PROCESS_LAUNCHER,
  TID_IO,
  TID_RENDERER,
} cef_thread_id_t;

// The types of a value.
typedef enum {
  VTYPE_INVALID = 0,
  VTYPE_NULL,
  VTYPE_BOOL,
  VTYPE_INT,
  VTYPE_DOUBLE,
  VTYPE_STRING,
  VTYPE_BINARY,
  VTYPE_DICTIONARY,
  VTYPE_LIST,
} cef_value_type_t;

// The kinds of JavaScript dialog.
typedef enum {
  JSDIALOGTYPE_ALERT = 0,
  JSDIALOGTYPE_CONFIRM,
  JSDIALOGTYPE_PROMPT,
} cef_jsdialog_type_t;

// The screen of a windowless view.
typedef struct _cef_screen_info_t {
  float device_scale_factor;
  int depth;
  int depth_per_component;
  int is_monochrome;
  cef_rect_t rect;
  cef_rect_t available_rect;
} cef_screen_info_t;

// Command ids of context menus; the client's own lie between MENU_ID_USER_FIRST and _LAST.
typedef enum {
  MENU_ID_BACK = 100,
  MENU_ID_FORWARD = 101,
  MENU_ID_RELOAD = 102,
  MENU_ID_RELOAD_NOCACHE = 103,
  MENU_ID_STOPLOAD = 104,
  MENU_ID_UNDO = 110,
  MENU_ID_REDO = 111,
  MENU_ID_CUT = 112,
  MENU_ID_COPY = 113,
  MENU_ID_PASTE = 114,
  MENU_ID_DELETE = 115,
  MENU_ID_SELECT_ALL = 116,
  MENU_ID_FIND = 130,
  MENU_ID_PRINT = 131,
  MENU_ID_VIEW_SOURCE = 132,
  MENU_ID_SPELLCHECK_SUGGESTION_0 = 200,
  MENU_ID_SPELLCHECK_SUGGESTION_1 = 201,
  MENU_ID_SPELLCHECK_SUGGESTION_2 = 202,
  MENU_ID_SPELLCHECK_SUGGESTION_3 = 203,
  MENU_ID_SPELLCHECK_SUGGESTION_4 = 204,
  MENU_ID_SPELLCHECK_SUGGESTION_LAST = 204,
  MENU_ID_NO_SPELLING_SUGGESTIONS = 205,
  MENU_ID_ADD_TO_DICTIONARY = 206,
  MENU_ID_CUSTOM_FIRST = 220,
  MENU_ID_CUSTOM_LAST = 250,
  MENU_ID_USER_FIRST = 26500,
  MENU_ID_USER_LAST = 28500,
} cef_menu_id_t;

// Mouse buttons.
typedef enum {
  MBT_LEFT = 0,
  MBT_MIDDLE,
  MBT_RIGHT,
} cef_mouse_button_type_t;

// A mouse event, in view coordinates; |modifiers| are cef_event_flags_t.
typedef struct _cef_mouse_event_t {
  int x;
  int y;
  uint32_t modifiers;
} cef_mouse_event_t;

// Phases of a touch.
typedef enum {
  CEF_TET_RELEASED = 0,
  CEF_TET_PRESSED,
  CEF_TET_MOVED,
  CEF_TET_CANCELLED
} cef_touch_event_type_t;

// Pointing devices.
typedef enum {
  CEF_POINTER_TYPE_TOUCH = 0,
  CEF_POINTER_TYPE_MOUSE,
  CEF_POINTER_TYPE_PEN,
  CEF_POINTER_TYPE_ERASER,
  CEF_POINTER_TYPE_UNKNOWN
} cef_pointer_type_t;

// A touch point, in view coordinates.
typedef struct _cef_touch_event_t {
  int id;
  float x;
  float y;
  float radius_x;
  float radius_y;
  float rotation_angle;
  float pressure;
  cef_touch_event_type_t type;
  uint32_t modifiers;
  cef_pointer_type_t pointer_type;
} cef_touch_event_t;

// What is painted.
typedef enum {
  PET_VIEW = 0,
  PET_POPUP,
} cef_paint_element_type_t;

// Modifier keys and buttons.
typedef enum {
  EVENTFLAG_NONE = 0,
  EVENTFLAG_CAPS_LOCK_ON = 1 << 0,
  EVENTFLAG_SHIFT_DOWN = 1 << 1,
  EVENTFLAG_CONTROL_DOWN = 1 << 2,
  EVENTFLAG_ALT_DOWN = 1 << 3,
  EVENTFLAG_LEFT_MOUSE_BUTTON = 1 << 4,
  EVENTFLAG_MIDDLE_MOUSE_BUTTON = 1 << 5,
  EVENTFLAG_RIGHT_MOUSE_BUTTON = 1 << 6,
  EVENTFLAG_COMMAND_DOWN = 1 << 7,
  EVENTFLAG_NUM_LOCK_ON = 1 << 8,
  EVENTFLAG_IS_KEY_PAD = 1 << 9,
  EVENTFLAG_IS_LEFT = 1 << 10,
  EVENTFLAG_IS_RIGHT = 1 << 11,
  EVENTFLAG_ALTGR_DOWN = 1 << 12,
  EVENTFLAG_IS_REPEAT = 1 << 13,
} cef_event_flags_t;

// Kinds of menu item.
typedef enum {
  MENUITEMTYPE_NONE,
  MENUITEMTYPE_COMMAND,
  MENUITEMTYPE_CHECK,
  MENUITEMTYPE_RADIO,
  MENUITEMTYPE_SEPARATOR,
  MENUITEMTYPE_SUBMENU,
} cef_menu_item_type_t;

// What a context menu was opened on.
typedef enum {
  CM_TYPEFLAG_NONE = 0,
  CM_TYPEFLAG_PAGE = 1 << 0,
  CM_TYPEFLAG_FRAME = 1 << 1,
  CM_TYPEFLAG_LINK = 1 << 2,
  CM_TYPEFLAG_MEDIA = 1 << 3,
  CM_TYPEFLAG_SELECTION = 1 << 4,
  CM_TYPEFLAG_EDITABLE = 1 << 5,
} cef_context_menu_type_flags_t;

// The kind of media under the pointer.
typedef enum {
  CM_MEDIATYPE_NONE,
  CM_MEDIATYPE_IMAGE,
  CM_MEDIATYPE_VIDEO,
  CM_MEDIATYPE_AUDIO,
  CM_MEDIATYPE_CANVAS,
  CM_MEDIATYPE_FILE,
  CM_MEDIATYPE_PLUGIN,
} cef_context_menu_media_type_t;

// The state of that media.
typedef enum {
  CM_MEDIAFLAG_NONE = 0,
  CM_MEDIAFLAG_IN_ERROR = 1 << 0,
  CM_MEDIAFLAG_PAUSED = 1 << 1,
  CM_MEDIAFLAG_MUTED = 1 << 2,
  CM_MEDIAFLAG_LOOP = 1 << 3,
  CM_MEDIAFLAG_CAN_SAVE = 1 << 4,
  CM_MEDIAFLAG_HAS_AUDIO = 1 << 5,
  CM_MEDIAFLAG_CAN_TOGGLE_CONTROLS = 1 << 6,
  CM_MEDIAFLAG_CONTROLS = 1 << 7,
  CM_MEDIAFLAG_CAN_PRINT = 1 << 8,
  CM_MEDIAFLAG_CAN_ROTATE = 1 << 9,
  CM_MEDIAFLAG_CAN_PICTURE_IN_PICTURE = 1 << 10,
  CM_MEDIAFLAG_PICTURE_IN_PICTURE = 1 << 11,
  CM_MEDIAFLAG_CAN_LOOP = 1 << 12,
} cef_context_menu_media_state_flags_t;

// The editing commands that make sense.
typedef enum {
  CM_EDITFLAG_NONE = 0,
  CM_EDITFLAG_CAN_UNDO = 1 << 0,
  CM_EDITFLAG_CAN_REDO = 1 << 1,
  CM_EDITFLAG_CAN_CUT = 1 << 2,
  CM_EDITFLAG_CAN_COPY = 1 << 3,
  CM_EDITFLAG_CAN_PASTE = 1 << 4,
  CM_EDITFLAG_CAN_DELETE = 1 << 5,
  CM_EDITFLAG_CAN_SELECT_ALL = 1 << 6,
  CM_EDITFLAG_CAN_TRANSLATE = 1 << 7,
  CM_EDITFLAG_CAN_EDIT_RICHLY = 1 << 8,
} cef_context_menu_edit_state_flags_t;

// The commands of a touch selection menu.
typedef enum {
  QM_EDITFLAG_NONE = 0,
  QM_EDITFLAG_CAN_ELLIPSIS = 1 << 0,
  QM_EDITFLAG_CAN_CUT = 1 << 1,
  QM_EDITFLAG_CAN_COPY = 1 << 2,
  QM_EDITFLAG_CAN_PASTE = 1 << 3,
} cef_quick_menu_edit_state_flags_t;

// Kinds of key event.
typedef enum {
  KEYEVENT_RAWKEYDOWN = 0,
  KEYEVENT_KEYDOWN,
  KEYEVENT_KEYUP,
  KEYEVENT_CHAR
} cef_key_event_type_t;

// A key event. |windows_key_code| is the VK_ code, |native_key_code| the lParam of the message.
typedef struct _cef_key_event_t {
  cef_key_event_type_t type;
  uint32_t modifiers;
  int windows_key_code;
  int native_key_code;
  int is_system_key;
  char16_t character;
  char16_t unmodified_character;
  int focus_on_editable_field;
} cef_key_event_t;

// Who asks for the focus.
typedef enum {
  FOCUS_SOURCE_NAVIGATION = 0,
  FOCUS_SOURCE_SYSTEM,
} cef_focus_source_t;

// What started a navigation.
typedef enum {
  NAVIGATION_LINK_CLICKED = 0,
  NAVIGATION_FORM_SUBMITTED,
  NAVIGATION_BACK_FORWARD,
  NAVIGATION_RELOAD,
  NAVIGATION_FORM_RESUBMITTED,
  NAVIGATION_OTHER,
} cef_navigation_type_t;

// The features named at window.open; each value counts if its ...Set member is non-zero.
typedef struct _cef_popup_features_t {
  int x;
  int xSet;
  int y;
  int ySet;
  int width;
  int widthSet;
  int height;
  int heightSet;
  int isPopup;
} cef_popup_features_t;

// Kinds of file dialog.
typedef enum {
  FILE_DIALOG_OPEN = 0,
  FILE_DIALOG_OPEN_MULTIPLE,
  FILE_DIALOG_OPEN_FOLDER,
  FILE_DIALOG_SAVE,
} cef_file_dialog_mode_t;

// Colour models of printers.
typedef enum {
  COLOR_MODEL_UNKNOWN,
  COLOR_MODEL_GRAY,
  COLOR_MODEL_COLOR,
  COLOR_MODEL_CMYK,
  COLOR_MODEL_CMY,
  COLOR_MODEL_KCMY,
  COLOR_MODEL_CMY_K,
  COLOR_MODEL_BLACK,
  COLOR_MODEL_GRAYSCALE,
  COLOR_MODEL_RGB,
  COLOR_MODEL_RGB16,
  COLOR_MODEL_RGBA,
  COLOR_MODEL_COLORMODE_COLOR,
  COLOR_MODEL_COLORMODE_MONOCHROME,
  COLOR_MODEL_HP_COLOR_COLOR,
  COLOR_MODEL_HP_COLOR_BLACK,
  COLOR_MODEL_PRINTOUTMODE_NORMAL,
  COLOR_MODEL_PRINTOUTMODE_NORMAL_GRAY,
  COLOR_MODEL_PROCESSCOLORMODEL_CMYK,
  COLOR_MODEL_PROCESSCOLORMODEL_GREYSCALE,
  COLOR_MODEL_PROCESSCOLORMODEL_RGB,
} cef_color_model_t;

// Duplex modes of printers.
typedef enum {
  DUPLEX_MODE_UNKNOWN = -1,
  DUPLEX_MODE_SIMPLEX,
  DUPLEX_MODE_LONG_EDGE,
  DUPLEX_MODE_SHORT_EDGE,
} cef_duplex_mode_t;

// Cursor shapes.
typedef enum {
  CT_POINTER = 0,
  CT_CROSS,
  CT_HAND,
  CT_IBEAM,
  CT_WAIT,
  CT_HELP,
  CT_EASTRESIZE,
  CT_NORTHRESIZE,
  CT_NORTHEASTRESIZE,
  CT_NORTHWESTRESIZE,
  CT_SOUTHRESIZE,
  CT_SOUTHEASTRESIZE,
  CT_SOUTHWESTRESIZE,
  CT_WESTRESIZE,
  CT_NORTHSOUTHRESIZE,
  CT_EASTWESTRESIZE,
  CT_NORTHEASTSOUTHWESTRESIZE,
  CT_NORTHWESTSOUTHEASTRESIZE,
  CT_COLUMNRESIZE,
  CT_ROWRESIZE,
  CT_MIDDLEPANNING,
  CT_EASTPANNING,
  CT_NORTHPANNING,
  CT_NORTHEASTPANNING,
  CT_NORTHWESTPANNING,
  CT_SOUTHPANNING,
  CT_SOUTHEASTPANNING,
  CT_SOUTHWESTPANNING,
  CT_WESTPANNING,
  CT_MOVE,
  CT_VERTICALTEXT,
  CT_CELL,
  CT_CONTEXTMENU,
  CT_ALIAS,
  CT_PROGRESS,
  CT_NODROP,
  CT_COPY,
  CT_NONE,
  CT_NOTALLOWED,
  CT_ZOOMIN,
  CT_ZOOMOUT,
  CT_GRAB,
  CT_GRABBING,
  CT_MIDDLE_PANNING_VERTICAL,
  CT_MIDDLE_PANNING_HORIZONTAL,
  CT_CUSTOM,
  CT_DND_NONE,
  CT_DND_MOVE,
  CT_DND_COPY,
  CT_DND_LINK,
} cef_cursor_type_t;

// A cursor image, for CT_CUSTOM.
typedef struct _cef_cursor_info_t {
  cef_point_t hotspot;
  float image_scale_factor;
  void* buffer;
  cef_size_t size;
} cef_cursor_info_t;

// What CefURIDecode undoes.
typedef enum {
  UU_NONE = 0,
  UU_NORMAL = 1 << 0,
  UU_SPACES = 1 << 1,
  UU_PATH_SEPARATORS = 1 << 2,
  UU_URL_SPECIAL_CHARS_EXCEPT_PATH_SEPARATORS = 1 << 3,
  UU_REPLACE_PLUS_WITH_SPACE = 1 << 4,
} cef_uri_unescape_rule_t;

// Options of the JSON parser.
typedef enum {
  JSON_PARSER_RFC = 0,
  JSON_PARSER_ALLOW_TRAILING_COMMAS = 1 << 0,
} cef_json_parser_options_t;

// Options of the JSON writer.
typedef enum {
  JSON_WRITER_DEFAULT = 0,
  JSON_WRITER_OMIT_BINARY_VALUES = 1 << 0,
  JSON_WRITER_OMIT_DOUBLE_TYPE_PRESERVATION = 1 << 1,
  JSON_WRITER_PRETTY_PRINT = 1 << 2,
} cef_json_writer_options_t;

// Margins of a PDF print.
typedef enum {
  PDF_PRINT_MARGIN_DEFAULT,
  PDF_PRINT_MARGIN_NONE,
  PDF_PRINT_MARGIN_CUSTOM,
} cef_pdf_print_margin_type_t;

// Settings of a PDF print. Lengths are in inches.
typedef struct _cef_pdf_print_settings_t {
  int landscape;
  int print_background;
  double scale;
  double paper_width;
  double paper_height;
  int prefer_css_page_size;
  cef_pdf_print_margin_type_t margin_type;
  double margin_top;
  double margin_right;
  double margin_bottom;
  double margin_left;
  cef_string_t page_ranges;
  int display_header_footer;
  cef_string_t header_template;
  cef_string_t footer_template;
  int generate_tagged_pdf;
  int generate_document_outline;
} cef_pdf_print_settings_t;

// Supported display scales.
typedef enum {
  SCALE_FACTOR_NONE = 0,
  SCALE_FACTOR_100P,
  SCALE_FACTOR_125P,
  SCALE_FACTOR_133P,
  SCALE_FACTOR_140P,
  SCALE_FACTOR_150P,
  SCALE_FACTOR_180P,
  SCALE_FACTOR_200P,
  SCALE_FACTOR_250P,
  SCALE_FACTOR_300P,
} cef_scale_factor_t;

// How much of the referrer is sent.
typedef enum {
  REFERRER_POLICY_CLEAR_REFERRER_ON_TRANSITION_FROM_SECURE_TO_INSECURE,
  REFERRER_POLICY_DEFAULT = REFERRER_POLICY_CLEAR_REFERRER_ON_TRANSITION_FROM_SECURE_TO_INSECURE,
  REFERRER_POLICY_REDUCE_REFERRER_GRANULARITY_ON_TRANSITION_CROSS_ORIGIN,
  REFERRER_POLICY_ORIGIN_ONLY_ON_TRANSITION_CROSS_ORIGIN,
  REFERRER_POLICY_NEVER_CLEAR_REFERRER,
  REFERRER_POLICY_ORIGIN,
  REFERRER_POLICY_CLEAR_REFERRER_ON_TRANSITION_CROSS_ORIGIN,
  REFERRER_POLICY_ORIGIN_CLEAR_ON_TRANSITION_FROM_SECURE_TO_INSECURE,
  REFERRER_POLICY_NO_REFERRER,
  REFERRER_POLICY_LAST_VALUE = REFERRER_POLICY_NO_REFERRER,
} cef_referrer_policy_t;

// What a response filter wants next.
typedef enum {
  RESPONSE_FILTER_NEED_MORE_DATA,
  RESPONSE_FILTER_DONE,
  RESPONSE_FILTER_ERROR
} cef_response_filter_status_t;

// Order of the bytes of a pixel.
typedef enum {
  CEF_COLOR_TYPE_RGBA_8888,
  CEF_COLOR_TYPE_BGRA_8888,
} cef_color_type_t;

// Meaning of the alpha byte.
typedef enum {
  CEF_ALPHA_TYPE_OPAQUE,
  CEF_ALPHA_TYPE_PREMULTIPLIED,
  CEF_ALPHA_TYPE_POSTMULTIPLIED,
} cef_alpha_type_t;

// Horizontal alignment.
typedef enum {
  CEF_HORIZONTAL_ALIGNMENT_LEFT,
  CEF_HORIZONTAL_ALIGNMENT_CENTER,
  CEF_HORIZONTAL_ALIGNMENT_RIGHT,
} cef_horizontal_alignment_t;

// The coloured parts of a menu.
typedef enum {
  CEF_MENU_COLOR_TEXT,
  CEF_MENU_COLOR_TEXT_HOVERED,
  CEF_MENU_COLOR_TEXT_ACCELERATOR,
  CEF_MENU_COLOR_TEXT_ACCELERATOR_HOVERED,
  CEF_MENU_COLOR_BACKGROUND,
  CEF_MENU_COLOR_BACKGROUND_HOVERED,
  CEF_MENU_COLOR_COUNT,
} cef_menu_color_type_t;

// Versions of TLS.
typedef enum {
  SSL_CONNECTION_VERSION_UNKNOWN = 0,
  SSL_CONNECTION_VERSION_SSL2 = 1,
  SSL_CONNECTION_VERSION_SSL3 = 2,
  SSL_CONNECTION_VERSION_TLS1 = 3,
  SSL_CONNECTION_VERSION_TLS1_1 = 4,
  SSL_CONNECTION_VERSION_TLS1_2 = 5,
  SSL_CONNECTION_VERSION_TLS1_3 = 6,
  SSL_CONNECTION_VERSION_QUIC = 7,
} cef_ssl_version_t;

// Insecure content on a secure page.
typedef enum {
  SSL_CONTENT_NORMAL_CONTENT = 0,
  SSL_CONTENT_DISPLAYED_INSECURE_CONTENT = 1 << 0,
  SSL_CONTENT_RAN_INSECURE_CONTENT = 1 << 1,
} cef_ssl_content_status_t;

// Properties of a custom scheme.
typedef enum {
  CEF_SCHEME_OPTION_NONE = 0,
  CEF_SCHEME_OPTION_STANDARD = 1 << 0,
  CEF_SCHEME_OPTION_LOCAL = 1 << 1,
  CEF_SCHEME_OPTION_DISPLAY_ISOLATED = 1 << 2,
  CEF_SCHEME_OPTION_SECURE = 1 << 3,
  CEF_SCHEME_OPTION_CORS_ENABLED = 1 << 4,
  CEF_SCHEME_OPTION_CSP_BYPASSING = 1 << 5,
  CEF_SCHEME_OPTION_FETCH_ENABLED = 1 << 6,
} cef_scheme_options_t;

// A range of characters.
typedef struct _cef_range_t {
  uint32_t from;
  uint32_t to;
} cef_range_t;

// Underline styles of an input method.
typedef enum {
  CEF_CUS_SOLID,
  CEF_CUS_DOT,
  CEF_CUS_DASH,
  CEF_CUS_NONE,
} cef_composition_underline_style_t;

// An underlined range of an input method.
typedef struct _cef_composition_underline_t {
  cef_range_t range;
  cef_color_t color;
  cef_color_t background_color;
  int thick;
  cef_composition_underline_style_t style;
} cef_composition_underline_t;

// Layouts of sound channels.
typedef enum {
  CEF_CHANNEL_LAYOUT_NONE = 0,
  CEF_CHANNEL_LAYOUT_UNSUPPORTED = 1,
  CEF_CHANNEL_LAYOUT_MONO = 2,
  CEF_CHANNEL_LAYOUT_STEREO = 3,
  CEF_CHANNEL_LAYOUT_2_1 = 4,
  CEF_CHANNEL_LAYOUT_SURROUND = 5,
  CEF_CHANNEL_LAYOUT_4_0 = 6,
  CEF_CHANNEL_LAYOUT_2_2 = 7,
  CEF_CHANNEL_LAYOUT_QUAD = 8,
  CEF_CHANNEL_LAYOUT_5_0 = 9,
  CEF_CHANNEL_LAYOUT_5_1 = 10,
  CEF_CHANNEL_LAYOUT_5_0_BACK = 11,
  CEF_CHANNEL_LAYOUT_5_1_BACK = 12,
  CEF_CHANNEL_LAYOUT_7_0 = 13,
  CEF_CHANNEL_LAYOUT_7_1 = 14,
  CEF_CHANNEL_LAYOUT_7_1_WIDE = 15,
  CEF_CHANNEL_LAYOUT_STEREO_DOWNMIX = 16,
  CEF_CHANNEL_LAYOUT_2POINT1 = 17,
  CEF_CHANNEL_LAYOUT_3_1 = 18,
  CEF_CHANNEL_LAYOUT_4_1 = 19,
  CEF_CHANNEL_LAYOUT_6_0 = 20,
  CEF_CHANNEL_LAYOUT_6_0_FRONT = 21,
  CEF_CHANNEL_LAYOUT_HEXAGONAL = 22,
  CEF_CHANNEL_LAYOUT_6_1 = 23,
  CEF_CHANNEL_LAYOUT_6_1_BACK = 24,
  CEF_CHANNEL_LAYOUT_6_1_FRONT = 25,
  CEF_CHANNEL_LAYOUT_7_0_FRONT = 26,
  CEF_CHANNEL_LAYOUT_7_1_WIDE_BACK = 27,
  CEF_CHANNEL_LAYOUT_OCTAGONAL = 28,
  CEF_CHANNEL_LAYOUT_DISCRETE = 29,
  CEF_CHANNEL_LAYOUT_STEREO_AND_KEYBOARD_MIC = 30,
  CEF_CHANNEL_LAYOUT_4_1_QUAD_SIDE = 31,
  CEF_CHANNEL_LAYOUT_BITSTREAM = 32,
  CEF_CHANNEL_LAYOUT_5_1_4_DOWNMIX = 33,
  CEF_CHANNEL_LAYOUT_MAX = CEF_CHANNEL_LAYOUT_5_1_4_DOWNMIX
} cef_channel_layout_t;

// Format of a sound stream.
typedef struct _cef_audio_parameters_t {
  cef_channel_layout_t channel_layout;
  int sample_rate;
  int frames_per_buffer;
} cef_audio_parameters_t;

// Icons of the browser's own user interface.
typedef enum {
  CEF_CPAIT_BOOKMARK_STAR = 0,
  CEF_CPAIT_CLICK_TO_CALL,
  CEF_CPAIT_COOKIE_CONTROLS,
  CEF_CPAIT_FILE_SYSTEM_ACCESS,
  CEF_CPAIT_FIND,
  CEF_CPAIT_HIGH_EFFICIENCY,
  CEF_CPAIT_INTENT_PICKER,
  CEF_CPAIT_LOCAL_CARD_MIGRATION,
  CEF_CPAIT_MANAGE_PASSWORDS,
  CEF_CPAIT_PAYMENTS_OFFER_NOTIFICATION,
  CEF_CPAIT_PRICE_TRACKING,
  CEF_CPAIT_PWA_INSTALL,
  CEF_CPAIT_QR_CODE_GENERATOR,
  CEF_CPAIT_READER_MODE,
  CEF_CPAIT_SAVE_AUTOFILL_ADDRESS,
  CEF_CPAIT_SAVE_CARD,
  CEF_CPAIT_SEND_TAB_TO_SELF,
  CEF_CPAIT_SHARING_HUB,
  CEF_CPAIT_SIDE_SEARCH,
  CEF_CPAIT_SMS_REMOTE_FETCHER,
  CEF_CPAIT_TRANSLATE,
  CEF_CPAIT_VIRTUAL_CARD_ENROLL,
  CEF_CPAIT_VIRTUAL_CARD_MANUAL_FALLBACK,
  CEF_CPAIT_ZOOM,
  CEF_CPAIT_SAVE_IBAN,
  CEF_CPAIT_MANDATORY_REAUTH,
  CEF_CPAIT_PRICE_INSIGHTS,
  CEF_CPAIT_PRICE_READ_ANYTHING,
  CEF_CPAIT_MAX_VALUE = CEF_CPAIT_PRICE_READ_ANYTHING,
} cef_chrome_page_action_icon_type_t;

// Buttons of the browser's own user interface.
typedef enum {
  CEF_CTBT_CAST = 0,
  CEF_CTBT_DOWNLOAD,
  CEF_CTBT_SEND_TAB_TO_SELF,
  CEF_CTBT_SIDE_PANEL,
  CEF_CTBT_MAX_VALUE = CEF_CTBT_SIDE_PANEL,
} cef_chrome_toolbar_button_type_t;

// Which members of cef_touch_handle_state_t count.
typedef enum {
  CEF_THS_FLAG_NONE = 0,
  CEF_THS_FLAG_ENABLED = 1 << 0,
  CEF_THS_FLAG_ORIENTATION = 1 << 1,
  CEF_THS_FLAG_ORIGIN = 1 << 2,
  CEF_THS_FLAG_ALPHA = 1 << 3,
} cef_touch_handle_state_flags_t;

// A handle of a touch selection.
typedef struct _cef_touch_handle_state_t {
  int touch_handle_id;
  uint32_t flags;
  int enabled;
  cef_horizontal_alignment_t orientation;
  int mirror_vertical;
  int mirror_horizontal;
  cef_point_t origin;
  float alpha;
} cef_touch_handle_state_t;

// Camera and microphone permissions.
typedef enum {
  CEF_MEDIA_PERMISSION_NONE = 0,
  CEF_MEDIA_PERMISSION_DEVICE_AUDIO_CAPTURE = 1 << 0,
  CEF_MEDIA_PERMISSION_DEVICE_VIDEO_CAPTURE = 1 << 1,
  CEF_MEDIA_PERMISSION_DESKTOP_AUDIO_CAPTURE = 1 << 2,
  CEF_MEDIA_PERMISSION_DESKTOP_VIDEO_CAPTURE = 1 << 3,
} cef_media_access_permission_types_t;

// Permissions that a page may ask for.
typedef enum {
  CEF_PERMISSION_TYPE_NONE = 0,
  CEF_PERMISSION_TYPE_ACCESSIBILITY_EVENTS = 1 << 0,
  CEF_PERMISSION_TYPE_AR_SESSION = 1 << 1,
  CEF_PERMISSION_TYPE_CAMERA_PAN_TILT_ZOOM = 1 << 2,
  CEF_PERMISSION_TYPE_CAMERA_STREAM = 1 << 3,
  CEF_PERMISSION_TYPE_CAPTURED_SURFACE_CONTROL = 1 << 4,
  CEF_PERMISSION_TYPE_CLIPBOARD = 1 << 5,
  CEF_PERMISSION_TYPE_TOP_LEVEL_STORAGE_ACCESS = 1 << 6,
  CEF_PERMISSION_TYPE_DISK_QUOTA = 1 << 7,
  CEF_PERMISSION_TYPE_LOCAL_FONTS = 1 << 8,
  CEF_PERMISSION_TYPE_GEOLOCATION = 1 << 9,
  CEF_PERMISSION_TYPE_IDLE_DETECTION = 1 << 10,
  CEF_PERMISSION_TYPE_MIC_STREAM = 1 << 11,
  CEF_PERMISSION_TYPE_MIDI = 1 << 12,
  CEF_PERMISSION_TYPE_MIDI_SYSEX = 1 << 13,
  CEF_PERMISSION_TYPE_MULTIPLE_DOWNLOADS = 1 << 14,
  CEF_PERMISSION_TYPE_NOTIFICATIONS = 1 << 15,
  CEF_PERMISSION_TYPE_PROTECTED_MEDIA_IDENTIFIER = 1 << 16,
  CEF_PERMISSION_TYPE_REGISTER_PROTOCOL_HANDLER = 1 << 17,
  CEF_PERMISSION_TYPE_STORAGE_ACCESS = 1 << 18,
  CEF_PERMISSION_TYPE_VR_SESSION = 1 << 19,
  CEF_PERMISSION_TYPE_WINDOW_MANAGEMENT = 1 << 20,
  CEF_PERMISSION_TYPE_FILE_SYSTEM_ACCESS = 1 << 21,
} cef_permission_request_types_t;

// Answers to a permission prompt.
typedef enum {
  CEF_PERMISSION_RESULT_ACCEPT,
  CEF_PERMISSION_RESULT_DENY,
  CEF_PERMISSION_RESULT_DISMISS,
  CEF_PERMISSION_RESULT_IGNORE,
} cef_permission_request_result_t;

// Stores of preferences.
typedef enum {
  CEF_PREFERENCES_TYPE_GLOBAL,
  CEF_PREFERENCES_TYPE_REQUEST_CONTEXT,
} cef_preferences_type_t;

// Why a download stopped.
typedef enum {
  CEF_DOWNLOAD_INTERRUPT_REASON_NONE = 0,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_FAILED = 1,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_ACCESS_DENIED = 2,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_NO_SPACE = 3,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_NAME_TOO_LONG = 5,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_TOO_LARGE = 6,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_VIRUS_INFECTED = 7,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_TRANSIENT_ERROR = 10,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_BLOCKED = 11,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_SECURITY_CHECK_FAILED = 12,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_TOO_SHORT = 13,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_HASH_MISMATCH = 14,
  CEF_DOWNLOAD_INTERRUPT_REASON_FILE_SAME_AS_SOURCE = 15,
  CEF_DOWNLOAD_INTERRUPT_REASON_NETWORK_FAILED = 20,
  CEF_DOWNLOAD_INTERRUPT_REASON_NETWORK_TIMEOUT = 21,
  CEF_DOWNLOAD_INTERRUPT_REASON_NETWORK_DISCONNECTED = 22,
  CEF_DOWNLOAD_INTERRUPT_REASON_NETWORK_SERVER_DOWN = 23,
  CEF_DOWNLOAD_INTERRUPT_REASON_NETWORK_INVALID_REQUEST = 24,
  CEF_DOWNLOAD_INTERRUPT_REASON_SERVER_FAILED = 30,
  CEF_DOWNLOAD_INTERRUPT_REASON_SERVER_NO_RANGE = 31,
  CEF_DOWNLOAD_INTERRUPT_REASON_SERVER_BAD_CONTENT = 33,
  CEF_DOWNLOAD_INTERRUPT_REASON_SERVER_UNAUTHORIZED = 34,
  CEF_DOWNLOAD_INTERRUPT_REASON_SERVER_CERT_PROBLEM = 35,
  CEF_DOWNLOAD_INTERRUPT_REASON_SERVER_FORBIDDEN = 36,
  CEF_DOWNLOAD_INTERRUPT_REASON_SERVER_UNREACHABLE = 37,
  CEF_DOWNLOAD_INTERRUPT_REASON_SERVER_CONTENT_LENGTH_MISMATCH = 38,
  CEF_DOWNLOAD_INTERRUPT_REASON_SERVER_CROSS_ORIGIN_REDIRECT = 39,
  CEF_DOWNLOAD_INTERRUPT_REASON_USER_CANCELED = 40,
  CEF_DOWNLOAD_INTERRUPT_REASON_USER_SHUTDOWN = 41,
  CEF_DOWNLOAD_INTERRUPT_REASON_CRASH = 50,
} cef_download_interrupt_reason_t;

// Zoom commands.
typedef enum {
  CEF_ZOOM_COMMAND_OUT,
  CEF_ZOOM_COMMAND_RESET,
  CEF_ZOOM_COMMAND_IN,
} cef_zoom_command_t;

}  // extern "C"
