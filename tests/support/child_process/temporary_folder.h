// A folder of a test's own.
#pragma once

#include <string>

namespace kzcef {

// A new empty folder below the system's folder for temporary files, deleted with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // Without a backslash at the end; only ASCII.
  const std::string& path() const { return path_; }
  std::wstring wide_path() const;
  // The path of something in the folder.
  std::string operator/(const std::string& name) const { return path_ + "\\" + name; }

 private:
  std::string path_;
};

// The content of a file, empty when it cannot be read; and the reverse, which replaces the file.
std::string ContentOf(const std::string& path);
void SetContent(const std::string& path, const std::string& content);

}  // namespace kzcef
