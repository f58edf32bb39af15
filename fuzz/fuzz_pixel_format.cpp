// Pixels of bitmaps that a host hands over.
#include <fuzzer/FuzzedDataProvider.h>

#include <vector>

#include "devtools/view/pixel_format.h"
#include "require.h"

using cefedition::AlphaForm;
using cefedition::ColorOrder;
using kzfuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  FuzzedDataProvider data(bytes, size);
  const ColorOrder order = data.ConsumeBool() ? ColorOrder::kRgba : ColorOrder::kBgra;
  const std::vector<uint8_t> pixels = data.ConsumeRemainingBytes<uint8_t>();
  const std::vector<uint8_t> whole(pixels.begin(),
                                   pixels.end() - static_cast<ptrdiff_t>(pixels.size() % 4));
  for (const AlphaForm form :
       {AlphaForm::kOpaque, AlphaForm::kPremultiplied, AlphaForm::kStraight}) {
    const auto straight = cefedition::ToStraightBgra(pixels, order, form);
    const auto back = cefedition::FromStraightBgra(straight, order, form);
    Require(back.size() == whole.size(), "as many pixels");
    Require(cefedition::FromStraightBgra(cefedition::ToStraightBgra(back, order, form), order,
                                         form) == back,
            "a second round changes nothing");
    if (form == AlphaForm::kStraight)
      Require(back == whole, "straight pixels come back as they were");
  }
  return 0;
}
