// Lists and maps of texts, which travel as objects of the engine's own.
#pragma once

#include <concepts>
#include <map>
#include <vector>

#include "c_api.h"
#include "include/internal/cef_string.h"

namespace cefbinding {

using TextList = std::vector<CefString>;
using TextMap = std::map<CefString, CefString>;
using TextMultimap = std::multimap<CefString, CefString>;

template <class T>
concept TextContainer =
    std::same_as<T, TextList> || std::same_as<T, TextMap> || std::same_as<T, TextMultimap>;

template <class Container>
struct EngineContainer;
template <>
struct EngineContainer<TextList> {
  using Type = capi::cef_string_list_t;
};
template <>
struct EngineContainer<TextMap> {
  using Type = capi::cef_string_map_t;
};
template <>
struct EngineContainer<TextMultimap> {
  using Type = capi::cef_string_multimap_t;
};

// Replaces what is in `target` by a copy of `texts`; null counts as empty.
void CopyTexts(capi::cef_string_list_t* texts, TextList& target);
void CopyTexts(capi::cef_string_map_t* texts, TextMap& target);
void CopyTexts(capi::cef_string_multimap_t* texts, TextMultimap& target);

// The engine's copy of a container, freed at the end.
template <TextContainer Container>
class EngineTexts {
 public:
  using Type = typename EngineContainer<Container>::Type;

  explicit EngineTexts(const Container& source);
  EngineTexts(const EngineTexts&) = delete;
  EngineTexts& operator=(const EngineTexts&) = delete;
  ~EngineTexts();

  // Null without an engine.
  Type* get() const { return texts_; }
  // Replaces what is in `target`; nothing without an engine.
  void CopyTo(Container& target) const {
    if (texts_) {
      CopyTexts(texts_, target);
    }
  }

 private:
  Type* const texts_;
};

}  // namespace cefbinding
