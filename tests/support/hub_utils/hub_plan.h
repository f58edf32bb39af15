// What the tests' hub library is to return, and what it was asked.
#pragma once

namespace kzhub {

// Shared with the library, which fills the counts. Set before the call under test; the texts must
// live until its end. Any one thread at a time.
struct Plan {
  // Null leaves the caller's pointer alone.
  const char* url = nullptr;
  // The caller's pointer becomes null instead.
  bool clears_pointer = false;
  // `header_count` lines, of which some may be null; null for none.
  const char* const* headers = nullptr;
  int header_count = 0;
  unsigned char flag = 1;

  int calls = 0;
  // Every call of the other two exports, "u" for deleteUrl and "h" for deleteHeaders.
  char deletions[64] = {};
  // The URL of the last call, cut to fit.
  char asked[512] = {};
  int urls_given = 0;
  int urls_back = 0;
  int headers_given = 0;
  int headers_back = 0;
};

}  // namespace kzhub
