// Lists and maps of texts over the C API.

#include "text_lists.h"

#include "binding.h"

namespace cefbinding {
namespace {

void Append(capi::cef_string_list_t* texts, const CefString& text) {
  CallLibrary(&capi::Functions::cef_string_list_append, texts, text);
}
void Append(capi::cef_string_map_t* texts, const TextMap::value_type& entry) {
  CallLibrary(&capi::Functions::cef_string_map_append, texts, entry.first, entry.second);
}
void Append(capi::cef_string_multimap_t* texts, const TextMultimap::value_type& entry) {
  CallLibrary(&capi::Functions::cef_string_multimap_append, texts, entry.first, entry.second);
}

template <class Texts>
Texts* Allocate();
template <>
capi::cef_string_list_t* Allocate() {
  return CallLibrary(&capi::Functions::cef_string_list_alloc);
}
template <>
capi::cef_string_map_t* Allocate() {
  return CallLibrary(&capi::Functions::cef_string_map_alloc);
}
template <>
capi::cef_string_multimap_t* Allocate() {
  return CallLibrary(&capi::Functions::cef_string_multimap_alloc);
}

void Free(capi::cef_string_list_t* texts) {
  CallLibrary(&capi::Functions::cef_string_list_free, texts);
}
void Free(capi::cef_string_map_t* texts) {
  CallLibrary(&capi::Functions::cef_string_map_free, texts);
}
void Free(capi::cef_string_multimap_t* texts) {
  CallLibrary(&capi::Functions::cef_string_multimap_free, texts);
}

template <typename Texts, typename Container, typename SizeOf, typename KeyAt, typename ValueAt>
void CopyPairs(Texts* texts, Container& target, SizeOf size_of, KeyAt key_at, ValueAt value_at) {
  target.clear();
  const size_t size = texts ? CallLibrary(size_of, texts) : 0;
  for (size_t i = 0; i < size; ++i) {
    CefString key;
    CefString value;
    CallLibrary(key_at, texts, i, &key);
    CallLibrary(value_at, texts, i, &value);
    target.emplace(key, value);
  }
}

}  // namespace

void CopyTexts(capi::cef_string_list_t* texts, TextList& target) {
  target.clear();
  const size_t size = texts ? CallLibrary(&capi::Functions::cef_string_list_size, texts) : 0;
  for (size_t i = 0; i < size; ++i) {
    CefString text;
    CallLibrary(&capi::Functions::cef_string_list_value, texts, i, &text);
    target.push_back(text);
  }
}

void CopyTexts(capi::cef_string_map_t* texts, TextMap& target) {
  CopyPairs(texts, target, &capi::Functions::cef_string_map_size,
            &capi::Functions::cef_string_map_key, &capi::Functions::cef_string_map_value);
}

void CopyTexts(capi::cef_string_multimap_t* texts, TextMultimap& target) {
  CopyPairs(texts, target, &capi::Functions::cef_string_multimap_size,
            &capi::Functions::cef_string_multimap_key, &capi::Functions::cef_string_multimap_value);
}

template <TextContainer Container>
EngineTexts<Container>::EngineTexts(const Container& source) : texts_(Allocate<Type>()) {
  if (texts_) {
    for (const auto& entry : source) {
      Append(texts_, entry);
    }
  }
}

template <TextContainer Container>
EngineTexts<Container>::~EngineTexts() {
  if (texts_) {
    Free(texts_);
  }
}

template class EngineTexts<TextList>;
template class EngineTexts<TextMap>;
template class EngineTexts<TextMultimap>;

CefString TakeText(cef_string_utf16_t* text) {
  CefString result;
  if (text) {
    // The characters bring their own way to be freed; the structure is the engine's to free.
    *result.GetWritableStruct() = std::exchange(*text, {});
    CallLibrary(&capi::Functions::cef_string_userfree_utf16_free, text);
  }
  return result;
}

}  // namespace cefbinding
