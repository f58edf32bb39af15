// The user's own certificates. The engine looks for those with which a user can prove their
// identity to a server by CertFindChainInStore, which in Wine 8 is a stub that finds none.
#include "certificate_chains.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

namespace kz::wine {
namespace {

struct ChainFreer {
  void operator()(PCCERT_CHAIN_CONTEXT chain) const { CertFreeCertificateChain(chain); }
};
using Chain = std::unique_ptr<const CERT_CHAIN_CONTEXT, ChainFreer>;

PCCERT_CONTEXT LeafOf(PCCERT_CHAIN_CONTEXT chain) {
  return chain->rgpChain[0]->rgpElement[0]->pCertContext;
}

bool IsSame(PCCERT_CONTEXT left, PCCERT_CONTEXT right) {
  return std::ranges::equal(std::span(left->pbCertEncoded, left->cbCertEncoded),
                            std::span(right->pbCertEncoded, right->cbCertEncoded));
}

bool HasPrivateKey(PCCERT_CONTEXT certificate) {
  DWORD size = 0;
  return CertGetCertificateContextProperty(certificate, CERT_KEY_PROV_INFO_PROP_ID, nullptr,
                                           &size) != FALSE;
}

// A certificate that names no usage serves for any.
bool MayBeUsedFor(PCCERT_CONTEXT certificate, LPCSTR usage) {
  DWORD size = 0;
  if (!usage || !CertGetEnhancedKeyUsage(certificate, 0, nullptr, &size)) {
    return true;
  }
  // The structure stands at the beginning, its texts behind it.
  std::vector<CERT_ENHKEY_USAGE> storage(size / sizeof(CERT_ENHKEY_USAGE) + 1);
  if (!CertGetEnhancedKeyUsage(certificate, 0, storage.data(), &size)) {
    return false;
  }
  const std::span usages(storage[0].rgpszUsageIdentifier, storage[0].cUsageIdentifier);
  return usages.empty() ? GetLastError() == static_cast<DWORD>(CRYPT_E_NOT_FOUND)
                        : std::ranges::any_of(
                              usages, [&](LPCSTR each) { return std::strcmp(each, usage) == 0; });
}

// Whether one of the issuers has signed any certificate of the chain.
bool LeadsTo(const CERT_SIMPLE_CHAIN& chain, std::span<CERT_NAME_BLOB> issuers) {
  return std::ranges::any_of(
      std::span(chain.rgpElement, chain.cElement), [&](PCERT_CHAIN_ELEMENT element) {
        CERT_INFO& certificate = *element->pCertContext->pCertInfo;
        return std::ranges::any_of(issuers, [&](CERT_NAME_BLOB& issuer) {
          return CertCompareCertificateName(X509_ASN_ENCODING, &certificate.Issuer, &issuer);
        });
      });
}

// Empty when the certificate is not one that is looked for.
Chain SuitableChain(PCCERT_CONTEXT certificate,
                    HCERTSTORE store,
                    DWORD flags,
                    const CERT_CHAIN_FIND_BY_ISSUER_PARA& wanted) {
  if ((!(flags & CERT_CHAIN_FIND_BY_ISSUER_NO_KEY_FLAG) && !HasPrivateKey(certificate)) ||
      !MayBeUsedFor(certificate, wanted.pszUsageIdentifier) ||
      (wanted.pfnFindCallback && !wanted.pfnFindCallback(certificate, wanted.pvFindArg))) {
    return nullptr;
  }
  CERT_CHAIN_PARA how = {};
  how.cbSize = sizeof(how);
  PCCERT_CHAIN_CONTEXT chain = nullptr;
  if (!CertGetCertificateChain(nullptr, certificate, nullptr, store, &how,
                               CERT_CHAIN_CACHE_ONLY_URL_RETRIEVAL, nullptr, &chain)) {
    return nullptr;
  }
  Chain found(chain);
  const std::span issuers(wanted.rgIssuer, wanted.cIssuer);
  return issuers.empty() || LeadsTo(*chain->rgpChain[0], issuers) ? std::move(found) : nullptr;
}

}  // namespace

PCCERT_CHAIN_CONTEXT WINAPI SuppliedCertFindChainInStore(HCERTSTORE store,
                                                         DWORD,
                                                         DWORD flags,
                                                         DWORD find_type,
                                                         const void* find_para,
                                                         PCCERT_CHAIN_CONTEXT previous) {
  const Chain last(previous);
  if (find_type != CERT_CHAIN_FIND_BY_ISSUER || !find_para) {
    SetLastError(static_cast<DWORD>(E_INVALIDARG));
    return nullptr;
  }
  const auto& wanted = *static_cast<const CERT_CHAIN_FIND_BY_ISSUER_PARA*>(find_para);
  bool reached = !last;
  PCCERT_CONTEXT certificate = nullptr;
  // Each step frees the certificate of the step before.
  while ((certificate = CertEnumCertificatesInStore(store, certificate)) != nullptr) {
    if (!reached) {
      reached = IsSame(certificate, LeafOf(last.get()));
    } else if (Chain chain = SuitableChain(certificate, store, flags, wanted)) {
      CertFreeCertificateContext(certificate);
      return chain.release();
    }
  }
  SetLastError(static_cast<DWORD>(CRYPT_E_NOT_FOUND));
  return nullptr;
}

}  // namespace kz::wine
