// include/cef_drag_data.h over the C API.

#include "include/cef_drag_data.h"

#include "binding.h"

namespace cefbinding {
namespace {

class DragDataObject final : public LibraryObject<CefDragData> {
 public:
  explicit DragDataObject(Struct* object) : LibraryObject(object) {}

  CefRefPtr<CefDragData> Clone() override { return Call(&Struct::clone); }
  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  bool IsLink() override { return Call(&Struct::is_link); }
  bool IsFragment() override { return Call(&Struct::is_fragment); }
  bool IsFile() override { return Call(&Struct::is_file); }
  CefString GetLinkURL() override { return Call(&Struct::get_link_url); }
  CefString GetLinkTitle() override { return Call(&Struct::get_link_title); }
  CefString GetLinkMetadata() override { return Call(&Struct::get_link_metadata); }
  CefString GetFragmentText() override { return Call(&Struct::get_fragment_text); }
  CefString GetFragmentHtml() override { return Call(&Struct::get_fragment_html); }
  CefString GetFragmentBaseURL() override { return Call(&Struct::get_fragment_base_url); }
  CefString GetFileName() override { return Call(&Struct::get_file_name); }
  bool GetFileNames(std::vector<CefString>& names) override {
    return Call(&Struct::get_file_names, &names);
  }
  bool GetFilePaths(std::vector<CefString>& paths) override {
    return Call(&Struct::get_file_paths, &paths);
  }
  void SetLinkURL(const CefString& url) override { Call(&Struct::set_link_url, url); }
  void SetLinkTitle(const CefString& title) override { Call(&Struct::set_link_title, title); }
  void SetLinkMetadata(const CefString& data) override { Call(&Struct::set_link_metadata, data); }
  void SetFragmentText(const CefString& text) override { Call(&Struct::set_fragment_text, text); }
  void SetFragmentHtml(const CefString& html) override { Call(&Struct::set_fragment_html, html); }
  void SetFragmentBaseURL(const CefString& base_url) override {
    Call(&Struct::set_fragment_base_url, base_url);
  }
  void ResetFileContents() override { Call(&Struct::reset_file_contents); }
  void AddFile(const CefString& path, const CefString& display_name) override {
    Call(&Struct::add_file, Needed(path), display_name);
  }
  void ClearFilenames() override { Call(&Struct::clear_filenames); }
  CefRefPtr<CefImage> GetImage() override { return Call(&Struct::get_image); }
  CefPoint GetImageHotspot() override { return Call(&Struct::get_image_hotspot); }
  bool HasImage() override { return Call(&Struct::has_image); }
};

}  // namespace

template <>
CefRefPtr<CefDragData> Counterpart<CefDragData>::LibraryClass::Wrap(Struct* object) {
  return new DragDataObject(object);
}

}  // namespace cefbinding

using cefbinding::CallEngine;

CefRefPtr<CefDragData> CefDragData::Create() {
  return CallEngine(&capi::Functions::cef_drag_data_create);
}
