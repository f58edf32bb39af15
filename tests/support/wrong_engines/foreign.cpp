// A library that is no engine at all.
extern "C" __declspec(dllexport) int an_answer() {
  return 42;
}
