// Reads the records of the file format in which Microsoft's and Wine's compilers write type
// libraries, as far as members and their help strings need it.

#include "type_library_file.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace contract {
namespace {

constexpr std::int32_t kSignature = 0x5446534D;  // "MSFT"
constexpr std::size_t kHeaderSize = 0x54;
constexpr std::size_t kVarFlagsAt = 0x14;
constexpr std::int32_t kHelpDllFollows = 0x100;
constexpr std::size_t kTypeCountAt = 0x20;

// Each row of the segment directory: offset, length and two reserved numbers.
constexpr std::size_t kSegmentSize = 16;
constexpr std::size_t kTypeSegment = 0;
constexpr std::size_t kNameSegment = 7;
constexpr std::size_t kStringSegment = 8;

constexpr std::size_t kTypeSize = 0x64;
constexpr std::size_t kTypeMembersAt = 0x04;
constexpr std::size_t kTypeCountsAt = 0x18;
constexpr std::size_t kTypeNameAt = 0x34;

// A function record: six fixed numbers, optional ones, then three for each parameter.
constexpr std::size_t kFixedNumbers = 6;
constexpr std::size_t kNumbersOfParameter = 3;
constexpr std::size_t kHelpStringNumber = kFixedNumbers + 1;
constexpr std::int32_t kHasDefaultValues = 0x1000;

class Reader {
 public:
  explicit Reader(std::span<const std::byte> file) : file_(file) {
    if (Number(0) != kSignature) {
      throw std::out_of_range("not in the MSFT format");
    }
  }

  std::int32_t Number(std::size_t at) const {
    std::int32_t number = 0;
    if (at + sizeof(number) > file_.size()) {
      throw std::out_of_range("the type library ends early");
    }
    std::memcpy(&number, file_.data() + at, sizeof(number));
    return number;
  }

  std::size_t Offset(std::size_t at) const { return static_cast<std::uint32_t>(Number(at)); }

  std::string Text(std::size_t at, std::size_t length) const {
    if (at + length > file_.size()) {
      throw std::out_of_range("the type library ends early");
    }
    return {reinterpret_cast<const char*>(file_.data() + at), length};
  }

  std::size_t Types() const {
    const bool has_help_dll = (Number(kVarFlagsAt) & kHelpDllFollows) != 0;
    return kHeaderSize + (has_help_dll ? sizeof(std::int32_t) : 0);
  }
  std::size_t TypeCount() const { return Offset(kTypeCountAt); }
  std::size_t Segment(std::size_t index) const {
    return Offset(Types() + TypeCount() * sizeof(std::int32_t) + index * kSegmentSize);
  }

  // A name, empty for the offset -1.
  std::string Name(std::int32_t offset) const {
    if (offset < 0) {
      return {};
    }
    const std::size_t at = Segment(kNameSegment) + static_cast<std::size_t>(offset);
    return Text(at + 12, Offset(at + 8) & 0xFF);
  }

  std::string String(std::int32_t offset) const {
    if (offset < 0) {
      return {};
    }
    const std::size_t at = Segment(kStringSegment) + static_cast<std::size_t>(offset);
    return Text(at + 2, Offset(at) & 0xFFFF);
  }

 private:
  std::span<const std::byte> file_;
};

FileMember ReadMember(const Reader& file, std::size_t record) {
  const auto number = [&](std::size_t index) {
    return file.Number(record + index * sizeof(std::int32_t));
  };
  FileMember member{};
  const std::int32_t flags = number(4);
  member.kind = static_cast<INVOKEKIND>((flags >> 3) & 0xF);
  const std::size_t numbers = (file.Offset(record) & 0xFFFF) / sizeof(std::int32_t);
  const auto parameters = static_cast<std::size_t>(number(5) & 0xFFFF);
  const std::size_t first_parameter = numbers - parameters * kNumbersOfParameter;
  const std::size_t default_values = (flags & kHasDefaultValues) != 0 ? parameters : 0;
  if (first_parameter - default_values > kHelpStringNumber) {
    member.help = file.String(number(kHelpStringNumber));
  }
  for (std::size_t i = 0; i < parameters; ++i) {
    member.parameter_names.push_back(
        file.Name(number(first_parameter + i * kNumbersOfParameter + 1)));
  }
  return member;
}

}  // namespace

std::map<std::string, std::vector<FileMember>> MembersInFile(std::span<const std::byte> bytes) {
  const Reader file(bytes);
  std::map<std::string, std::vector<FileMember>> interfaces;
  for (std::size_t type = 0; type < file.TypeCount(); ++type) {
    const std::size_t at = file.Segment(kTypeSegment) + type * kTypeSize;
    const std::size_t functions = file.Offset(at + kTypeCountsAt) & 0xFFFF;
    std::vector<FileMember>& members = interfaces[file.Name(file.Number(at + kTypeNameAt))];
    if (functions == 0) {
      continue;
    }
    // The records, then one array each of identifiers, names and the records' places. The constants
    // of an enumeration share the arrays, behind the functions.
    const std::size_t variables = file.Offset(at + kTypeCountsAt) >> 16;
    const std::size_t records = file.Offset(at + kTypeMembersAt) + sizeof(std::int32_t);
    const std::size_t ids = records + file.Offset(file.Offset(at + kTypeMembersAt));
    const std::size_t row = (functions + variables) * sizeof(std::int32_t);
    for (std::size_t i = 0; i < functions; ++i) {
      const std::size_t cell = ids + i * sizeof(std::int32_t);
      FileMember member = ReadMember(file, records + file.Offset(cell + 2 * row));
      member.id = file.Number(cell);
      member.name = file.Name(file.Number(cell + row));
      members.push_back(std::move(member));
    }
  }
  return interfaces;
}

}  // namespace contract
