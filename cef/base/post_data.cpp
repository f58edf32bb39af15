#include <algorithm>
#include <cstdint>
#include <mutex>

#include "request.h"

namespace cefedition {
namespace {

class PostDataElement final : public CefPostDataElement {
 public:
  void SetReadOnly(bool read_only) {
    const std::lock_guard lock(lock_);
    read_only_ = read_only;
  }

  bool IsReadOnly() override {
    const std::lock_guard lock(lock_);
    return read_only_;
  }
  void SetToEmpty() override {
    const std::lock_guard lock(lock_);
    Assign(PDE_TYPE_EMPTY, CefString(), {});
  }
  void SetToFile(const CefString& fileName) override {
    const std::lock_guard lock(lock_);
    if (!fileName.empty()) {
      Assign(PDE_TYPE_FILE, fileName, {});
    }
  }
  void SetToBytes(size_t size, const void* bytes) override {
    const std::lock_guard lock(lock_);
    const auto* data = static_cast<const uint8_t*>(bytes);
    if (data) {
      Assign(PDE_TYPE_BYTES, CefString(), std::vector<uint8_t>(data, data + size));
    }
  }
  Type GetType() override {
    const std::lock_guard lock(lock_);
    return type_;
  }
  CefString GetFile() override {
    const std::lock_guard lock(lock_);
    return file_;
  }
  size_t GetBytesCount() override {
    const std::lock_guard lock(lock_);
    return bytes_.size();
  }
  size_t GetBytes(size_t size, void* bytes) override {
    const std::lock_guard lock(lock_);
    if (!bytes) {
      return 0;
    }
    const size_t count = std::min(size, bytes_.size());
    std::copy_n(bytes_.begin(), count, static_cast<uint8_t*>(bytes));
    return count;
  }

 private:
  void Assign(Type type, const CefString& file, std::vector<uint8_t> bytes) {
    if (!read_only_) {
      type_ = type;
      file_ = file;
      bytes_ = std::move(bytes);
    }
  }

  std::mutex lock_;
  bool read_only_ = false;
  Type type_ = PDE_TYPE_EMPTY;
  CefString file_;
  std::vector<uint8_t> bytes_;

  IMPLEMENT_REFCOUNTING(PostDataElement);
};

class PostData final : public CefPostData {
 public:
  void SetReadOnly(bool read_only) {
    const std::lock_guard lock(lock_);
    read_only_ = read_only;
    for (const auto& element : elements_) {
      if (auto* const known = dynamic_cast<PostDataElement*>(element.get())) {
        known->SetReadOnly(read_only);
      }
    }
  }

  bool IsReadOnly() override {
    const std::lock_guard lock(lock_);
    return read_only_;
  }
  // The edition sees every element of a body that it hands out.
  bool HasExcludedElements() override { return false; }
  size_t GetElementCount() override {
    const std::lock_guard lock(lock_);
    return elements_.size();
  }
  void GetElements(ElementVector& elements) override {
    const std::lock_guard lock(lock_);
    elements = elements_;
  }
  bool RemoveElement(CefRefPtr<CefPostDataElement> element) override {
    const std::lock_guard lock(lock_);
    const auto found = std::find(elements_.begin(), elements_.end(), element);
    if (read_only_ || found == elements_.end()) {
      return false;
    }
    elements_.erase(found);
    return true;
  }
  // An element is in a body once.
  bool AddElement(CefRefPtr<CefPostDataElement> element) override {
    const std::lock_guard lock(lock_);
    if (read_only_ || !element ||
        std::find(elements_.begin(), elements_.end(), element) != elements_.end()) {
      return false;
    }
    elements_.push_back(element);
    return true;
  }
  void RemoveElements() override {
    const std::lock_guard lock(lock_);
    if (!read_only_) {
      elements_.clear();
    }
  }

 private:
  std::mutex lock_;
  bool read_only_ = false;
  ElementVector elements_;

  IMPLEMENT_REFCOUNTING(PostData);
};

}  // namespace

void SetReadOnly(CefPostData* post_data, bool read_only) {
  if (auto* const known = dynamic_cast<PostData*>(post_data)) {
    known->SetReadOnly(read_only);
  }
}

}  // namespace cefedition

CefRefPtr<CefPostData> CefPostData::Create() {
  return new cefedition::PostData;
}

CefRefPtr<CefPostDataElement> CefPostDataElement::Create() {
  return new cefedition::PostDataElement;
}
