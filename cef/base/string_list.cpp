#include "include/internal/cef_string_list.h"

#include <vector>

struct _cef_string_list_t {
  std::vector<CefString> values;
};

cef_string_list_t cef_string_list_alloc() {
  return new _cef_string_list_t;
}

size_t cef_string_list_size(cef_string_list_t list) {
  return list->values.size();
}

int cef_string_list_value(cef_string_list_t list, size_t index, cef_string_t* value) {
  if (index >= list->values.size()) {
    return 0;
  }
  const CefString& found = list->values[index];
  return cef_string_copy(found.c_str(), found.length(), value);
}

void cef_string_list_append(cef_string_list_t list, const cef_string_t* value) {
  list->values.push_back(value ? CefString(value->str, value->length, true) : CefString());
}

void cef_string_list_clear(cef_string_list_t list) {
  list->values.clear();
}

void cef_string_list_free(cef_string_list_t list) {
  delete list;
}

cef_string_list_t cef_string_list_copy(cef_string_list_t list) {
  return new _cef_string_list_t(*list);
}
