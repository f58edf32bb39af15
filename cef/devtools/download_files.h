#pragma once

#include <memory>
#include <stop_token>
#include <string>

#include "include/internal/cef_types.h"

namespace cefedition {

/// The folder into which the browser writes what it downloads, each file under the download's id
/// and thus under no name that anybody chose. It belongs to one run of the engine and goes with all
/// that is in it when the last reference does. Any thread.
class DownloadFolder {
 public:
  /// Creates the folder in the profile and removes those of processes that ended without doing so
  /// themselves. Null when it cannot be created.
  static std::shared_ptr<DownloadFolder> Create(const std::wstring& profile);

  explicit DownloadFolder(std::wstring path) : path_(std::move(path)) {}
  ~DownloadFolder();
  DownloadFolder(const DownloadFolder&) = delete;
  DownloadFolder& operator=(const DownloadFolder&) = delete;

  const std::wstring& path() const { return path_; }
  std::wstring FileOf(const std::string& guid) const;
  /// Removes what there is of a download, finished or not.
  void Remove(const std::string& guid) const;

 private:
  const std::wstring path_;
};

/// Where a download goes when the client names no place of its own or one whose folder can neither
/// be found nor created: `wished`, or `suggested_name` in the temporary folder. Absolute.
std::wstring DownloadTarget(const std::wstring& wished, const std::wstring& suggested_name);

/// Puts a finished file in its place, over a file that is there. On another volume it is copied,
/// and appears under its name only when it is whole. Answers why it failed;
/// CEF_DOWNLOAD_INTERRUPT_REASON_USER_CANCELED when it was stopped. Either way `from` is gone.
cef_download_interrupt_reason_t MoveIntoPlace(const std::wstring& from,
                                              const std::wstring& to,
                                              const std::stop_token& stop);

}  // namespace cefedition
