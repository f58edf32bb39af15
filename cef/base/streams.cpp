#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <mutex>
#include <vector>

#include "include/cef_stream.h"

// Seek, Tell and Eof answer as the C functions of the same names.

namespace {

struct FileCloser {
  void operator()(FILE* file) const { fclose(file); }
};
using UniqueFile = std::unique_ptr<FILE, FileCloser>;

UniqueFile Open(const CefString& name, const wchar_t* mode) {
  return UniqueFile(name.empty() ? nullptr : _wfopen(name.ToWString().c_str(), mode));
}

// A file as far as reading and writing it are alike. |Interface| is CefStreamReader or
// CefStreamWriter.
template <class Interface>
class FileStream : public Interface {
 public:
  explicit FileStream(UniqueFile file) : file_(std::move(file)) {}

  int Seek(int64_t offset, int whence) override {
    const std::lock_guard lock(lock_);
    return _fseeki64(file_.get(), offset, whence);
  }
  int64_t Tell() override {
    const std::lock_guard lock(lock_);
    return _ftelli64(file_.get());
  }
  bool MayBlock() override { return true; }

 protected:
  std::mutex lock_;
  const UniqueFile file_;
};

class FileReader final : public FileStream<CefStreamReader> {
 public:
  using FileStream::FileStream;

  size_t Read(void* ptr, size_t size, size_t n) override {
    const std::lock_guard lock(lock_);
    return ptr ? fread(ptr, size, n, file_.get()) : 0;
  }
  int Eof() override {
    const std::lock_guard lock(lock_);
    return feof(file_.get());
  }

 private:
  IMPLEMENT_REFCOUNTING(FileReader);
};

class BytesReader final : public CefStreamReader {
 public:
  BytesReader(const void* data, size_t size)
      : bytes_(static_cast<const uint8_t*>(data), static_cast<const uint8_t*>(data) + size) {}

  size_t Read(void* ptr, size_t size, size_t n) override {
    const std::lock_guard lock(lock_);
    if (!ptr || size == 0) {
      return 0;
    }
    const size_t count = std::min(n, (bytes_.size() - position_) / size);
    std::copy_n(bytes_.data() + position_, count * size, static_cast<uint8_t*>(ptr));
    position_ += count * size;
    return count;
  }
  int Seek(int64_t offset, int whence) override {
    const std::lock_guard lock(lock_);
    const auto end = static_cast<int64_t>(bytes_.size());
    const int64_t start = whence == SEEK_SET   ? 0
                          : whence == SEEK_CUR ? static_cast<int64_t>(position_)
                          : whence == SEEK_END ? end
                                               : -1;
    if (start < 0 || offset < -start || offset > end - start) {
      return -1;
    }
    position_ = static_cast<size_t>(start + offset);
    return 0;
  }
  int64_t Tell() override {
    const std::lock_guard lock(lock_);
    return static_cast<int64_t>(position_);
  }
  int Eof() override {
    const std::lock_guard lock(lock_);
    return position_ == bytes_.size();
  }
  bool MayBlock() override { return false; }

 private:
  std::mutex lock_;
  const std::vector<uint8_t> bytes_;
  size_t position_ = 0;

  IMPLEMENT_REFCOUNTING(BytesReader);
};

class HandlerReader final : public CefStreamReader {
 public:
  explicit HandlerReader(CefRefPtr<CefReadHandler> handler) : handler_(std::move(handler)) {}

  size_t Read(void* ptr, size_t size, size_t n) override { return handler_->Read(ptr, size, n); }
  int Seek(int64_t offset, int whence) override { return handler_->Seek(offset, whence); }
  int64_t Tell() override { return handler_->Tell(); }
  int Eof() override { return handler_->Eof(); }
  bool MayBlock() override { return handler_->MayBlock(); }

 private:
  const CefRefPtr<CefReadHandler> handler_;

  IMPLEMENT_REFCOUNTING(HandlerReader);
};

class FileWriter final : public FileStream<CefStreamWriter> {
 public:
  using FileStream::FileStream;

  size_t Write(const void* ptr, size_t size, size_t n) override {
    const std::lock_guard lock(lock_);
    return ptr ? fwrite(ptr, size, n, file_.get()) : 0;
  }
  int Flush() override {
    const std::lock_guard lock(lock_);
    return fflush(file_.get());
  }

 private:
  IMPLEMENT_REFCOUNTING(FileWriter);
};

class HandlerWriter final : public CefStreamWriter {
 public:
  explicit HandlerWriter(CefRefPtr<CefWriteHandler> handler) : handler_(std::move(handler)) {}

  size_t Write(const void* ptr, size_t size, size_t n) override {
    return handler_->Write(ptr, size, n);
  }
  int Seek(int64_t offset, int whence) override { return handler_->Seek(offset, whence); }
  int64_t Tell() override { return handler_->Tell(); }
  int Flush() override { return handler_->Flush(); }
  bool MayBlock() override { return handler_->MayBlock(); }

 private:
  const CefRefPtr<CefWriteHandler> handler_;

  IMPLEMENT_REFCOUNTING(HandlerWriter);
};

}  // namespace

CefRefPtr<CefStreamReader> CefStreamReader::CreateForFile(const CefString& fileName) {
  UniqueFile file = Open(fileName, L"rb");
  return file ? new FileReader(std::move(file)) : nullptr;
}

CefRefPtr<CefStreamReader> CefStreamReader::CreateForData(void* data, size_t size) {
  return data && size > 0 ? new BytesReader(data, size) : nullptr;
}

CefRefPtr<CefStreamReader> CefStreamReader::CreateForHandler(CefRefPtr<CefReadHandler> handler) {
  return handler ? new HandlerReader(handler) : nullptr;
}

CefRefPtr<CefStreamWriter> CefStreamWriter::CreateForFile(const CefString& fileName) {
  UniqueFile file = Open(fileName, L"wb");
  return file ? new FileWriter(std::move(file)) : nullptr;
}

CefRefPtr<CefStreamWriter> CefStreamWriter::CreateForHandler(CefRefPtr<CefWriteHandler> handler) {
  return handler ? new HandlerWriter(handler) : nullptr;
}
