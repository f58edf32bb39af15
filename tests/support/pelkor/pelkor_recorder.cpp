// Keeps every trace line of the process, in the order of their arrival.
#include <cstddef>
#include <deque>
#include <mutex>
#include <string>

namespace {

struct Line {
  std::string tag;
  std::wstring format;
  std::wstring text;
};

std::mutex lock;
// A deque, because its elements stay where they are: the readers hand out pointers.
std::deque<Line> lines;

const Line& At(std::size_t index) {
  const std::lock_guard guard(lock);
  return lines.at(index);
}

}  // namespace

extern "C" {

void suTrace(const char* tag, const wchar_t* format, const wchar_t* text) {
  const std::lock_guard guard(lock);
  lines.push_back({tag, format, text});
}

std::size_t PelkorLineCount() {
  const std::lock_guard guard(lock);
  return lines.size();
}

const char* PelkorTag(std::size_t index) {
  return At(index).tag.c_str();
}

const wchar_t* PelkorFormat(std::size_t index) {
  return At(index).format.c_str();
}

const wchar_t* PelkorText(std::size_t index) {
  return At(index).text.c_str();
}
}
