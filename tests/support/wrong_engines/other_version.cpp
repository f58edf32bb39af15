// An engine of another version: its API has another hash.
extern "C" __declspec(dllexport) const char* cef_api_hash(int) {
  return "0123456789abcdef0123456789abcdef01234567";
}
