#pragma once

namespace cefedition {

/// Decides when a page that has come to rest is asked for its picture once more. The browser drops
/// frames, and does not make up for the last one, so what is shown may be an older state. A frame
/// that answers the asking is known to be the page's present state; any other one is asked after.
///
/// Each call hands out the number of the last frame; a rest later, `AskAfterRest` with that number
/// tells whether the picture is to be asked for. Not synchronised.
class PaintingRest {
 public:
  /// A frame came.
  int CountFrame();
  /// The page changed in a way that must show, whether or not a frame came.
  int ExpectFrame();
  /// True if the picture is to be asked for: no frame came since the one of this number, and that
  /// was no answer. An asking that stays without an answer is repeated a few times.
  bool AskAfterRest(int frame);

 private:
  int frames_ = 0;
  int unanswered_ = 0;
  bool answer_due_ = false;
  bool settled_ = false;
};

}  // namespace cefedition
