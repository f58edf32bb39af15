// Certificates as authorities make them, for tests of what takes them apart. They were made with
// OpenSSL and certify nothing.
#pragma once

#include <vector>

#include "include/cef_x509_certificate.h"

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

// What the engine tells of the first of these texts, with the others as its issuers.
CefRefPtr<CefX509Certificate> MakeCertificate(const std::vector<const char*>& chain);

}  // namespace certificates
