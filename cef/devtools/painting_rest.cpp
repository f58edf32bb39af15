#include "devtools/painting_rest.h"

namespace cefedition {

namespace {

// A page whose process is gone never answers.
constexpr int kMostUnanswered = 5;

}  // namespace

int PaintingRest::CountFrame() {
  settled_ = answer_due_;
  answer_due_ = false;
  unanswered_ = 0;
  return ++frames_;
}

int PaintingRest::ExpectFrame() {
  settled_ = false;
  unanswered_ = 0;
  return frames_;
}

bool PaintingRest::AskAfterRest(int frame) {
  if (frame != frames_ || settled_ || unanswered_ == kMostUnanswered) {
    return false;
  }
  ++unanswered_;
  answer_due_ = true;
  return true;
}

}  // namespace cefedition
