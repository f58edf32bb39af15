// Fuzzes the reader of flat JSON: cookie texts come from hosts, and from what web servers have set.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <map>
#include <string>

#include "require.h"
#include "utils/flat_json.h"

using kzfuzz::Require;

namespace {

using Members = std::map<std::u16string, std::u16string>;

std::u16string Trimmed(const std::u16string& text, const std::u16string& dropped) {
  const std::size_t begin = text.find_first_not_of(dropped);
  return begin == std::u16string::npos
             ? std::u16string()
             : text.substr(begin, text.find_last_not_of(dropped) + 1 - begin);
}

std::u16string TrimmedLikeAName(const std::u16string& text) {
  const std::u16string blanks = u" \n\r\t\f\v";
  return Trimmed(Trimmed(Trimmed(text, blanks), u"\""), blanks);
}

// The same splitting, step by step with copies, and with every search from the beginning.
Members ReadSlowly(const std::u16string& text) {
  std::u16string rest = Trimmed(text, u" \n\r\t\f\v");
  rest.erase(0, std::min(rest.find_first_not_of(u'{'), rest.size()));
  while (rest.ends_with(u'}'))
    rest.pop_back();
  rest = Trimmed(rest, u" \n\r\t\f\v");
  Members members;
  for (;;) {
    std::u16string name;
    if (const std::size_t colon = rest.find(u':'); colon != std::u16string::npos) {
      name = rest.substr(0, colon);
      rest = rest.substr(colon + 1);
    }
    std::size_t comma = rest.find(u',');
    if (const std::size_t quote = rest.find(u'"'); quote < comma)
      comma = rest.find(u',', rest.find(u'"', quote + 1));
    members[TrimmedLikeAName(name)] = TrimmedLikeAName(rest.substr(0, comma));
    if (comma == std::u16string::npos)
      return members;
    rest = rest.substr(comma + 1);
  }
}

Members Owned(const kzcef::FlatJson<char16_t>& members) {
  Members owned;
  for (const auto& [name, text] : members)
    owned.emplace(name, text);
  return owned;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  const std::string narrow = data.ConsumeRemainingBytesAsString();
  std::u16string text;
  for (const char byte : narrow)
    text += static_cast<char16_t>(static_cast<unsigned char>(byte));

  const auto members = kzcef::ReadFlatJson(std::u16string_view(text));
  Require(!members.empty(), "every text has an entry");
  Require(Owned(members) == ReadSlowly(text), "the members are those of the slow way");
  for (const auto& [name, value] : members) {
    Require(name.find(u':') == std::u16string_view::npos, "a name ends at a colon");
    Require(kzcef::MemberText(members, name) == value, "each member is found by its name");
  }
  return 0;
}
