// The user's own certificates, for tests that show one to a server.
//
//   kz_user_certificates add CERTIFICATE KEY CONTAINER     puts it into the store, with its key
//   kz_user_certificates remove CERTIFICATE CONTAINER      takes it out, and deletes the key
//
// CERTIFICATE is a file in DER, KEY a PRIVATEKEYBLOB (openssl rsa -outform MSBLOB), CONTAINER the
// name under which the key is kept.
#include <windows.h>

#include <wincrypt.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

// The one provider of the old interface that can sign SHA-256.
constexpr DWORD kProviderType = PROV_RSA_AES;

struct StoreCloser {
  void operator()(HCERTSTORE store) const { CertCloseStore(store, 0); }
};
struct CertificateFreer {
  void operator()(PCCERT_CONTEXT certificate) const { CertFreeCertificateContext(certificate); }
};
using Certificate = std::unique_ptr<const CERT_CONTEXT, CertificateFreer>;
using Store = std::unique_ptr<void, StoreCloser>;

void Check(BOOL succeeded, const char* what) {
  if (!succeeded) {
    throw std::runtime_error(std::string(what) + ": error " + std::to_string(GetLastError()));
  }
}

std::vector<BYTE> Content(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

Store UsersStore() {
  Store store(CertOpenStore(CERT_STORE_PROV_SYSTEM_W, 0, 0, CERT_SYSTEM_STORE_CURRENT_USER, L"MY"));
  Check(store != nullptr, "CertOpenStore");
  return store;
}

void Add(const wchar_t* certificate_file, const wchar_t* key_file, wchar_t* container) {
  HCRYPTPROV provider = 0;
  Check(CryptAcquireContextW(&provider, container, nullptr, kProviderType, CRYPT_NEWKEYSET),
        "CryptAcquireContext");
  const std::vector<BYTE> blob = Content(key_file);
  HCRYPTKEY key = 0;
  Check(CryptImportKey(provider, blob.data(), static_cast<DWORD>(blob.size()), 0, 0, &key),
        "CryptImportKey");
  CryptDestroyKey(key);
  CryptReleaseContext(provider, 0);

  const std::vector<BYTE> encoded = Content(certificate_file);
  PCCERT_CONTEXT added = nullptr;
  const Store store = UsersStore();
  Check(CertAddEncodedCertificateToStore(store.get(), X509_ASN_ENCODING, encoded.data(),
                                         static_cast<DWORD>(encoded.size()),
                                         CERT_STORE_ADD_REPLACE_EXISTING, &added),
        "CertAddEncodedCertificateToStore");
  const Certificate certificate(added);
  CRYPT_KEY_PROV_INFO information = {};
  information.pwszContainerName = container;
  information.dwProvType = kProviderType;
  information.dwKeySpec = AT_KEYEXCHANGE;
  Check(CertSetCertificateContextProperty(added, CERT_KEY_PROV_INFO_PROP_ID, 0, &information),
        "CertSetCertificateContextProperty");
}

// The name of its key in the registry.
std::wstring Thumbprint(PCCERT_CONTEXT certificate) {
  std::array<BYTE, 20> hash = {};
  DWORD size = sizeof(hash);
  Check(CertGetCertificateContextProperty(certificate, CERT_SHA1_HASH_PROP_ID, hash.data(), &size),
        "CertGetCertificateContextProperty");
  std::wstring text;
  for (const BYTE byte : hash) {
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0xF];
  }
  return text;
}

void Remove(const wchar_t* certificate_file, const wchar_t* container) {
  const std::vector<BYTE> encoded = Content(certificate_file);
  const Certificate certificate(CertCreateCertificateContext(X509_ASN_ENCODING, encoded.data(),
                                                             static_cast<DWORD>(encoded.size())));
  Check(certificate != nullptr, "CertCreateCertificateContext");
  // Where the store keeps it: Wine does not write down what CertDeleteCertificateFromStore takes
  // out.
  const std::wstring key =
      LR"(Software\Microsoft\SystemCertificates\My\Certificates\)" + Thumbprint(certificate.get());
  const LSTATUS deletion = RegDeleteKeyW(HKEY_CURRENT_USER, key.c_str());
  SetLastError(static_cast<DWORD>(deletion));
  Check(deletion == ERROR_SUCCESS, "RegDeleteKey");
  HCRYPTPROV deleted = 0;
  Check(CryptAcquireContextW(&deleted, container, nullptr, kProviderType, CRYPT_DELETEKEYSET),
        "CryptAcquireContext");
}

}  // namespace

int wmain(int count, wchar_t** values) {
  const std::span arguments(values, static_cast<size_t>(count));
  try {
    if (count == 5 && std::wstring_view(arguments[1]) == L"add") {
      Add(arguments[2], arguments[3], arguments[4]);
    } else if (count == 4 && std::wstring_view(arguments[1]) == L"remove") {
      Remove(arguments[2], arguments[3]);
    } else {
      throw std::runtime_error(
          "usage: add CERTIFICATE KEY CONTAINER | remove CERTIFICATE CONTAINER");
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kz_user_certificates: %s\n", error.what());
    return 1;
  }
  return 0;
}
