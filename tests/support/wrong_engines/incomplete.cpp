// An engine that says that it is the right one, and lacks all the rest.
extern "C" __declspec(dllexport) const char* cef_api_hash(int) {
  return KZ_API_HASH;
}
