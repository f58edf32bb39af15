// Certificates as authorities make them, for tests of what takes them apart. They were made with
// OpenSSL and certify nothing.
#pragma once

#include <cstdint>
#include <vector>

#include "base64.h"

namespace certificates {

// C=DE, ST=Hesse, L=Frankfurt am Main, O=Müller & Co, OU=One, OU=Two, CN=intranet.test, issued by
// the next.
inline constexpr char kServer[] =
    "MIIBtTCCAVwCCQCBAgMEBQYHCDAKBggqhkjOPQQDAjBBMRgwFgYDVQQKDA9BbHBoYSBBdXRob3JpdHkxFDAS"
    "BgNVBAoMC1NlY29uZCBOYW1lMQ8wDQYDVQQLDAZVbml0IEEwHhcNMjYxMTIxMjI0MjQ3WhcNMzYxMTE4MjI0"
    "MjQ3WjCBhDELMAkGA1UEBhMCREUxDjAMBgNVBAgMBUhlc3NlMRowGAYDVQQHDBFGcmFua2Z1cnQgYW0gTWFp"
    "bjEVMBMGA1UECgwMTcO8bGxlciAmIENvMQwwCgYDVQQLDANPbmUxDDAKBgNVBAsMA1R3bzEWMBQGA1UEAwwN"
    "aW50cmFuZXQudGVzdDBZMBMGByqGSM49AgEGCCqGSM49AwEHA0IABFxmS3JeJZeBYiR0ev32auEbrdppfzVG"
    "3dXo4Q93zb1wn3VQ/rV4zMTfFDU3bFqP0MFWm//9MbYwFW9lzy+1RNcwCgYIKoZIzj0EAwIDRwAwRAIgRj7o"
    "lI+7etI5ZDyXmqWqvFBIZ4i3g07zJrP7zbs2uKQCIAXhRUTPAya+G1ZQH40Kad8wO4l56Hqj5q+4iSBushCo";

// O=Alpha Authority, O=Second Name, OU=Unit A.
inline constexpr char kAuthority[] =
    "MIIBxDCCAWqgAwIBAgIBATAKBggqhkjOPQQDAjBBMRgwFgYDVQQKDA9BbHBoYSBBdXRob3JpdHkxFDASBgNV"
    "BAoMC1NlY29uZCBOYW1lMQ8wDQYDVQQLDAZVbml0IEEwHhcNMjYxMTIxMjI0MjQ3WhcNNDYxMTE2MjI0MjQ3"
    "WjBBMRgwFgYDVQQKDA9BbHBoYSBBdXRob3JpdHkxFDASBgNVBAoMC1NlY29uZCBOYW1lMQ8wDQYDVQQLDAZV"
    "bml0IEEwWTATBgcqhkjOPQIBBggqhkjOPQMBBwNCAAQlCaHNv7CVqG2rBEHwK3UtzmZajraYB7mP6byNPLTK"
    "94ZcjZwU7TFPvoqrTwZqNV+pTIYorYSulm99CNB49WbKo1MwUTAdBgNVHQ4EFgQUbLJXDo3TzbWiMsHkvaks"
    "sAABALswHwYDVR0jBBgwFoAUbLJXDo3TzbWiMsHkvakssAABALswDwYDVR0TAQH/BAUwAwEB/zAKBggqhkjO"
    "PQQDAgNIADBFAiEAuUArBQGKm4XqXFLcp24PDQgX0g7Zkui6iMeWVKy4rbYCIArRcfmR8EIOjaXi7kAkwN1h"
    "BKS1MZeEQ6TFls2ia9lx";

// OU=Only Unit.
inline constexpr char kUnit[] =
    "MIIBazCCARCgAwIBAgIBAjAKBggqhkjOPQQDAjAUMRIwEAYDVQQLDAlPbmx5IFVuaXQwHhcNMjYxMTIxMjI0"
    "MjQ3WhcNNDYxMTE2MjI0MjQ3WjAUMRIwEAYDVQQLDAlPbmx5IFVuaXQwWTATBgcqhkjOPQIBBggqhkjOPQMB"
    "BwNCAAQlCaHNv7CVqG2rBEHwK3UtzmZajraYB7mP6byNPLTK94ZcjZwU7TFPvoqrTwZqNV+pTIYorYSulm99"
    "CNB49WbKo1MwUTAdBgNVHQ4EFgQUbLJXDo3TzbWiMsHkvakssAABALswHwYDVR0jBBgwFoAUbLJXDo3TzbWi"
    "MsHkvakssAABALswDwYDVR0TAQH/BAUwAwEB/zAKBggqhkjOPQQDAgNJADBGAiEAge77H35zOB9b1hEn9j+p"
    "KmaUemQzYAdtLh78FttFzSICIQCOllLD9K1m2igOxCBV4tlzpLVuz+g4pv3syCJbp70zPw==";

// L=Nowhere.
inline constexpr char kNameless[] =
    "MIIBZjCCAQygAwIBAgIBAzAKBggqhkjOPQQDAjASMRAwDgYDVQQHDAdOb3doZXJlMB4XDTI2MTEyMTIyNDI0"
    "N1oXDTQ2MTExNjIyNDI0N1owEjEQMA4GA1UEBwwHTm93aGVyZTBZMBMGByqGSM49AgEGCCqGSM49AwEHA0IA"
    "BCUJoc2/sJWobasEQfArdS3OZlqOtpgHuY/pvI08tMr3hlyNnBTtMU++iqtPBmo1X6lMhiithK6Wb30I0Hj1"
    "ZsqjUzBRMB0GA1UdDgQWBBRsslcOjdPNtaIyweS9qSywAAEAuzAfBgNVHSMEGDAWgBRsslcOjdPNtaIyweS9"
    "qSywAAEAuzAPBgNVHRMBAf8EBTADAQH/MAoGCCqGSM49BAMCA0gAMEUCIQCF5O/8hRdI/SricXOZe4XNIKZh"
    "L/JZokR+ZSVgCbKXWgIgHBE8Q6xta6qLXsqkpeNXkFKlAYCeCtI/wxpJ336w3MY=";

// The bytes that one of these texts stands for.
inline std::vector<std::uint8_t> Der(const char* base64) {
  return cefedition::Base64Decode(base64).value();
}

}  // namespace certificates
