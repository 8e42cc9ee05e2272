// libFuzzer target for the layered binary form of fonts (the chunk reader of
// FontDefinitionEx and StreamableTraits), and for the one-line text form.
//
// The input is read as a stream of fonts, one after the other, until the
// reader fails or stops moving. The reader must never move outside the
// stream, and a font it reads must write out and read back to the same
// bytes. The same input, as UTF-8, is read as a font's text form: what it
// reads must write out to a text that reads back to itself.

#include <zowidgets/fonts/FontDefinitionEx.h>
#include <zowidgets/fonts/FontText.h>
#include <zowidgets/host/base/Log.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

void check(bool condition) {
  if (!condition)
    std::abort();
}

std::vector<unsigned char> packed(FontDefinitionEx const& font) {
  StreamFile file;
  PStream stream(file);
  check(font.STRM_hierarchyPack(stream) == Streamable::kPacked);
  return file.bytes();
}

void checkChunks(std::uint8_t const* data, std::size_t size) {
  StreamFile file(std::vector<unsigned char>(data, data + size));
  PStream stream(file);
  while (!file.atEnd()) {
    std::size_t const before = file.tell();
    FontDefinitionEx font;
    int const result = font.STRM_hierarchyUnpack(stream);
    check(file.tell() <= size);
    check(result == Streamable::kUnpacked || result == Streamable::kStreamError || result == Streamable::kWrongLayer ||
          result == Streamable::kUnexpectedEnd);
    if (result != Streamable::kUnpacked || file.tell() == before || stream.hasError())
      break;
    std::vector<unsigned char> const written = packed(font);
    StreamFile again(written);
    PStream readAgain(again);
    FontDefinitionEx copy;
    check(copy.STRM_hierarchyUnpack(readAgain) == Streamable::kUnpacked && again.atEnd());
    check(packed(copy) == written);
  }
}

void checkText(std::uint8_t const* data, std::size_t size) {
  auto const text = LightweightString<wchar_t>::fromUTF8(std::string_view(reinterpret_cast<char const*>(data), size));
  LightweightString<wchar_t> const once = asString(fontFromString(text));
  check(asString(fontFromString(once)) == once);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // The reader's warnings go to the log; standard error would drown the run.
  std::setvbuf(stderr, nullptr, _IOFBF, 1 << 16);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  checkChunks(data, size);
  checkText(data, size);
  return 0;
}
