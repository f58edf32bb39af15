// The DLL as a file: what it exports, what it needs and which resources it carries.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "server_library.h"

namespace contract {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

constexpr WORD kEnglishUnitedStates = 0x0409;

// The image of a loaded module, read through its headers.
class Image {
 public:
  explicit Image(HMODULE module) : base_(reinterpret_cast<const std::byte*>(module)) {}

  template <typename Type>
  const Type* At(DWORD offset) const {
    return reinterpret_cast<const Type*>(base_ + offset);
  }

  const IMAGE_DATA_DIRECTORY& Directory(int index) const {
    const auto* headers =
        At<IMAGE_NT_HEADERS>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    return headers->OptionalHeader.DataDirectory[index];
  }

  const IMAGE_EXPORT_DIRECTORY& Exports() const {
    return *At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT).VirtualAddress);
  }

 private:
  const std::byte* base_;
};

std::vector<std::string> ImportedLibraries(const Image& image) {
  std::vector<std::string> names;
  const auto* row = image.At<IMAGE_IMPORT_DESCRIPTOR>(
      image.Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);
  for (; row->Name != 0; ++row) {
    names.emplace_back(image.At<char>(row->Name));
  }
  return names;
}

std::filesystem::path SystemFolder() {
  std::wstring folder(MAX_PATH, L'\0');
  folder.resize(GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
  return folder;
}

std::string_view Resource(HMODULE module, const wchar_t* type, WORD name, WORD language) {
  const HRSRC found = FindResourceExW(module, type, MAKEINTRESOURCEW(name), language);
  if (!found) {
    return {};
  }
  return {static_cast<const char*>(LockResource(LoadResource(module, found))),
          SizeofResource(module, found)};
}

TEST(DllFile, ExportsExactlySixFunctionsByTheirPlainNames) {
  const ServerLibrary server;
  const Image image(server.module());
  const IMAGE_EXPORT_DIRECTORY& exports = image.Exports();
  std::vector<std::string> names;
  for (DWORD i = 0; i < exports.NumberOfNames; ++i) {
    names.emplace_back(image.At<char>(image.At<DWORD>(exports.AddressOfNames)[i]));
  }
  EXPECT_THAT(names,
              UnorderedElementsAre("DllCanUnloadNow", "DllGetClassObject", "DllInstall",
                                   "DllRegisterServer", "DllUnregisterServer", "HandlePostMsg"));
  // None by ordinal alone.
  EXPECT_EQ(exports.NumberOfFunctions, exports.NumberOfNames);
  EXPECT_STREQ(image.At<char>(exports.Name), "KZCEFComWrapper.dll");
}

TEST(DllFile, NeedsWindowsSystemLibrariesOnly) {
  const ServerLibrary server;
  const Image image(server.module());
  const std::vector<std::string> names = ImportedLibraries(image);
  EXPECT_FALSE(names.empty());
  for (const std::string& name : names) {
    EXPECT_TRUE(std::filesystem::exists(SystemFolder() / name)) << name;
  }
  EXPECT_EQ(image.Directory(IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT).VirtualAddress, 0U);
}

TEST(DllFile, IsA64BitLibrary) {
  const ServerLibrary server;
  const Image image(server.module());
  const auto* headers =
      image.At<IMAGE_NT_HEADERS>(static_cast<DWORD>(image.At<IMAGE_DOS_HEADER>(0)->e_lfanew));
  EXPECT_EQ(headers->FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
  EXPECT_NE(headers->FileHeader.Characteristics & IMAGE_FILE_DLL, 0);
}

TEST(DllFile, CarriesTheTypeLibraryAsItsFirstInEnglish) {
  const ServerLibrary server;
  std::vector<std::pair<LPWSTR, WORD>> found;
  EnumResourceNamesW(
      server.module(), L"TYPELIB",
      [](HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR out) -> BOOL {
        return EnumResourceLanguagesW(
            module, type, name,
            [](HMODULE, LPCWSTR, LPCWSTR own_name, WORD language, LONG_PTR rows) -> BOOL {
              reinterpret_cast<std::vector<std::pair<LPCWSTR, WORD>>*>(rows)->emplace_back(
                  own_name, language);
              return TRUE;
            },
            out);
      },
      reinterpret_cast<LONG_PTR>(&found));
  EXPECT_THAT(found, ElementsAre(std::pair(MAKEINTRESOURCEW(1), kEnglishUnitedStates)));
}

// The numbers are those of Windows' languages.
TEST(DllFile, CarriesTheCertificateChooserInFourteenLanguages) {
  const ServerLibrary server;
  for (const WORD language :
       {1028, 1029, 1031, 1033, 1036, 1040, 1041, 1042, 1045, 1046, 1049, 1055, 2052, 3082}) {
    EXPECT_FALSE(Resource(server.module(), RT_DIALOG, 3000, language).empty()) << language;
    // The block of the strings 0 to 15.
    EXPECT_FALSE(Resource(server.module(), RT_STRING, 1, language).empty()) << language;
  }
}

TEST(DllFile, StatesItsVersion) {
  const std::wstring path = ServerPath();
  std::vector<std::byte> block(GetFileVersionInfoSizeW(path.c_str(), nullptr));
  ASSERT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));

  VS_FIXEDFILEINFO* fixed = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&fixed), &size));
  EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
  EXPECT_EQ(HIWORD(fixed->dwFileVersionMS), 1);
  EXPECT_EQ(fixed->dwProductVersionMS, fixed->dwFileVersionMS);

  const auto text = [&](const wchar_t* name) {
    wchar_t* value = nullptr;
    UINT length = 0;
    const std::wstring query = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    return VerQueryValueW(block.data(), query.c_str(), reinterpret_cast<void**>(&value), &length)
               ? std::wstring(value)
               : std::wstring();
  };
  EXPECT_EQ(text(L"OriginalFilename"), L"KZCEFComWrapper.dll");
  EXPECT_EQ(text(L"ProductName"), L"KZCEFComWrapper");
  EXPECT_EQ(text(L"InternalName"), L"KZCEFComWrapper");
  EXPECT_EQ(text(L"FileVersion").substr(0, 2), L"1.");
}

TEST(DllFile, AsksForTheInvokersRightsAndIsDpiAware) {
  const ServerLibrary server;
  const WORD id = LOWORD(reinterpret_cast<ULONG_PTR>(ISOLATIONAWARE_MANIFEST_RESOURCE_ID));
  const std::string manifest(Resource(server.module(), RT_MANIFEST, id, kEnglishUnitedStates));
  EXPECT_THAT(manifest,
              HasSubstr("<requestedExecutionLevel level=\"asInvoker\" uiAccess=\"false\"/>"));
  EXPECT_THAT(manifest, HasSubstr("SMI/2005/WindowsSettings\">true</dpiAware>"));

  // And it is a manifest that the system can use.
  ACTCTXW context{};
  context.cbSize = sizeof(context);
  context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  context.hModule = server.module();
  context.lpResourceName = MAKEINTRESOURCEW(id);
  const HANDLE created = CreateActCtxW(&context);
  EXPECT_NE(created, INVALID_HANDLE_VALUE);
  ReleaseActCtx(created);
}

}  // namespace
}  // namespace contract
