#pragma once

#include "include/internal/cef_export.h"
#include "include/internal/cef_string.h"

extern "C" {

// A list of texts. The caller of alloc and copy owes the free.
typedef struct _cef_string_list_t* cef_string_list_t;

CEF_EXPORT cef_string_list_t cef_string_list_alloc(void);
CEF_EXPORT size_t cef_string_list_size(cef_string_list_t list);
// 0 when |index| is out of range.
CEF_EXPORT int cef_string_list_value(cef_string_list_t list, size_t index, cef_string_t* value);
CEF_EXPORT void cef_string_list_append(cef_string_list_t list, const cef_string_t* value);
CEF_EXPORT void cef_string_list_clear(cef_string_list_t list);
CEF_EXPORT void cef_string_list_free(cef_string_list_t list);
CEF_EXPORT cef_string_list_t cef_string_list_copy(cef_string_list_t list);

}  // extern "C"
