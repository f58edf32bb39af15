#include "devtools/download_item.h"

namespace cefedition {
namespace {

constexpr int64_t kMicrosecondsPerSecond = 1000000;

}  // namespace

EditionDownloadItem::EditionDownloadItem(DownloadState state)
    : state_(std::move(state)), taken_(CefBaseTime::Now()) {}

bool EditionDownloadItem::IsInProgress() {
  return state_.progress == DownloadState::Progress::kRunning;
}

bool EditionDownloadItem::IsComplete() {
  return state_.progress == DownloadState::Progress::kComplete;
}

bool EditionDownloadItem::IsCanceled() {
  return state_.progress == DownloadState::Progress::kCancelled;
}

bool EditionDownloadItem::IsInterrupted() {
  return state_.progress == DownloadState::Progress::kInterrupted;
}

int64_t EditionDownloadItem::GetCurrentSpeed() {
  const int64_t elapsed = taken_.val - state_.start_time.val;
  if (!IsInProgress() || elapsed <= 0) {
    return 0;
  }
  // In floating point: sizes times microseconds do not fit.
  return static_cast<int64_t>(static_cast<double>(state_.received_bytes) * kMicrosecondsPerSecond /
                              static_cast<double>(elapsed));
}

int EditionDownloadItem::GetPercentComplete() {
  if (IsComplete()) {
    return 100;
  }
  if (state_.total_bytes <= 0) {
    return -1;
  }
  const double part =
      static_cast<double>(state_.received_bytes) / static_cast<double>(state_.total_bytes);
  return part >= 1 ? 100 : static_cast<int>(part * 100);
}

}  // namespace cefedition
