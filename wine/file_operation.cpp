// Gap: the shell's file operations.
//
// Wine 8: CLSID_FileOperation is a class whose every method returns E_NOTIMPL.
// Chromium: puts a finished download into its place with it: one SetOperationFlags, one MoveItem,
// one PerformOperations (components/download/internal/common/base_file_win.cc). No download ever
// completes otherwise.
// Superfluous: when IFileOperation::MoveItem of Wine's own object returns S_OK.
#include "file_operation.h"

#include <shellapi.h>
#include <shobjidl.h>
#include <wrl/client.h>

#include <atomic>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace kz::wine {
namespace {

using Microsoft::WRL::ComPtr;

HRESULT PathOf(IShellItem* item, std::wstring* path) {
  if (!item) {
    return E_INVALIDARG;
  }
  LPWSTR text = nullptr;
  const HRESULT result = item->GetDisplayName(SIGDN_FILESYSPATH, &text);
  const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owned(text, &CoTaskMemFree);
  if (SUCCEEDED(result)) {
    *path = text;
  }
  return result;
}

std::wstring NameIn(const std::wstring& path) {
  return path.substr(path.find_last_of(L'\\') + 1);
}

// Moves and renames files; the other operations are not needed by the engine.
class FileMover final : public IFileOperation {
 public:
  FileMover() = default;
  FileMover(const FileMover&) = delete;
  FileMover& operator=(const FileMover&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interface_id, void** object) override {
    if (interface_id != IID_IUnknown && interface_id != IID_IFileOperation) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = static_cast<IFileOperation*>(this);
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }

  HRESULT STDMETHODCALLTYPE SetOperationFlags(DWORD flags) override {
    flags_ = flags;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE MoveItem(IShellItem* item,
                                     IShellItem* folder,
                                     LPCWSTR new_name,
                                     IFileOperationProgressSink*) override {
    Move move;
    if (const HRESULT result = PathOf(item, &move.from); FAILED(result)) {
      return result;
    }
    if (const HRESULT result = PathOf(folder, &move.to); FAILED(result)) {
      return result;
    }
    move.to += L'\\';
    move.to += new_name ? std::wstring(new_name) : NameIn(move.from);
    moves_.push_back(std::move(move));
    return S_OK;
  }

  // In the order of the calls; the first that fails is the last.
  HRESULT STDMETHODCALLTYPE PerformOperations() override {
    DWORD how = MOVEFILE_COPY_ALLOWED;
    if (flags_ & FOF_NOCONFIRMATION) {
      how |= MOVEFILE_REPLACE_EXISTING;
    }
    const std::vector<Move> moves = std::exchange(moves_, {});
    for (const Move& move : moves) {
      if (!MoveFileExW(move.from.c_str(), move.to.c_str(), how)) {
        return HRESULT_FROM_WIN32(GetLastError());
      }
    }
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetAnyOperationsAborted(BOOL* aborted) override {
    *aborted = FALSE;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE Advise(IFileOperationProgressSink*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetProgressMessage(LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetProgressDialog(IOperationsProgressDialog*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetProperties(IPropertyChangeArray*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetOwnerWindow(HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ApplyPropertiesToItem(IShellItem*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ApplyPropertiesToItems(IUnknown*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RenameItem(IShellItem*, LPCWSTR, IFileOperationProgressSink*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE RenameItems(IUnknown*, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE MoveItems(IUnknown*, IShellItem*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CopyItem(IShellItem*,
                                     IShellItem*,
                                     LPCWSTR,
                                     IFileOperationProgressSink*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE CopyItems(IUnknown*, IShellItem*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeleteItem(IShellItem*, IFileOperationProgressSink*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DeleteItems(IUnknown*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE
  NewItem(IShellItem*, DWORD, LPCWSTR, LPCWSTR, IFileOperationProgressSink*) override {
    return E_NOTIMPL;
  }

 private:
  struct Move {
    std::wstring from;
    std::wstring to;
  };

  ~FileMover() = default;

  std::atomic<ULONG> references_{1};
  DWORD flags_ = 0;
  std::vector<Move> moves_;
};

}  // namespace

HRESULT WINAPI SuppliedCoCreateInstance(REFCLSID class_id,
                                        LPUNKNOWN outer,
                                        DWORD context,
                                        REFIID interface_id,
                                        LPVOID* object) {
  if (class_id != CLSID_FileOperation || outer || !(context & CLSCTX_INPROC_SERVER)) {
    return CoCreateInstance(class_id, outer, context, interface_id, object);
  }
  ComPtr<IFileOperation> operation;
  operation.Attach(new (std::nothrow) FileMover);
  return operation ? operation.CopyTo(interface_id, object) : E_OUTOFMEMORY;
}

}  // namespace kz::wine
