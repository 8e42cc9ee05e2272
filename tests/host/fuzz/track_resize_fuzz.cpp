// libFuzzer target for the track button's resize message, read back from
// any text as a parent would read the messages its track buttons send.
//
// Whatever the text, the two numbers are either both read or both 0; read,
// they come only from text beginning "TrackBtnResize"; and the message made
// from them reads back to the same numbers.

#include <zowidgets/editor/TrackButton.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void check(bool condition) {
  if (!condition)
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string const text(reinterpret_cast<char const*>(data), size);
  TrackButton::ResizeParams const params{LightweightString<char>(text)};
  if (params.delta != 0 || params.startHeight != 0)
    check(text.starts_with("TrackBtnResize"));
  LightweightString<char> const message = params.asString();
  check(message.view().starts_with("TrackBtnResize "));
  check(TrackButton::ResizeParams(message) == params);
  return 0;
}
