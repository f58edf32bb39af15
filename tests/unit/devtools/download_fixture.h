#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "devtools/engine.h"
#include "engine_fixture.h"
#include "recording_downloads.h"

namespace cefedition {

/// Real downloads from the tests' own server.
class DownloadTest : public EngineTest {
 protected:
  DownloadTest() : downloads_(new RecordingDownloads(&log_)) {
    client_->downloads = downloads_;
    std::filesystem::create_directories(Target(L"").parent_path());
  }

  /// A file in the folder that downloads go to.
  std::filesystem::path Target(const std::wstring& name) const {
    return folder_ / L"target" / name;
  }

  /// Has every download go on under its suggested name.
  void ContinueAll() {
    downloads_->on_before = [this](const std::string& name, auto callback) {
      callback->Continue(Target({name.begin(), name.end()}).wstring(), false);
    };
  }

  void AddFile(const std::string& path, const std::string& body, const std::string& headers = {}) {
    PageServer::Page page;
    page.body = body;
    page.content_type = "application/zip; charset=x";
    page.headers = headers;
    server_.AddPage(path, page);
  }

  /// A file whose end waits until the server is released or ends.
  void AddEndlessFile(const std::string& path) {
    PageServer::Page page;
    page.body = std::string(200'000, 'x');
    page.content_type = "application/zip";
    page.held_at = 100'000;
    server_.AddPage(path, page);
  }

  /// Shows a page with this body, in a profile that is looked at afterwards.
  bool Show(const std::string& body) {
    server_.Add("/page", body);
    CefSettings settings;
    CefString(&settings.cache_path) = (folder_ / L"profile").wstring();
    if (!StartEngine(settings)) {
      return false;
    }
    CreateBrowser(client_, server_.Url("/page"));
    return log_.WaitFor("idle");
  }

  std::vector<std::string> Ends() const {
    return log_.Only({"complete", "cancelled", "interrupted"});
  }

  /// What the private folder holds.
  std::vector<std::string> Unfinished() const {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(Engine::Get()->cache_path()) / L"EditionDownloads", error)) {
      if (entry.is_regular_file()) {
        names.push_back(entry.path().filename().string());
      }
    }
    return names;
  }

  /// No event of ours says that a file comes or goes, or a dialog: looked for with every tick.
  bool WaitForOutside(const std::function<bool()>& condition) {
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, nullptr);
    const bool came = log_.WaitUntil(condition);
    KillTimer(nullptr, timer);
    return came;
  }

  std::vector<std::string> Arrived() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(Target(L""))) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  static std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }

  CefRefPtr<RecordingDownloads> downloads_;
};

}  // namespace cefedition
