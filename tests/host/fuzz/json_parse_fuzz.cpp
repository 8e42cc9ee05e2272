// libFuzzer target for JSON::parse. Each input is read twice: as UTF-8 text,
// the way parseFile reads bytes, and as raw wide characters, so that values no
// decoder would make (surrogates, negatives) reach the reader as well. Whatever
// parses is written out again with the Builder, in both styles, and must parse
// back to the same shape: that checks the reader and the writer against each
// other on inputs nobody thought of.

#include <zowidgets/host/base/JSON.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

void write(JSON::Element const& element, JSON::Builder& builder, char const* key) {
  element.isArray() ? builder.startArray(key) : builder.startChild(key);
  for (auto const& attrib : element.getStringAttribs())
    builder.add(attrib.name.data(), LightweightString<char>(attrib.value));
  for (auto const& attrib : element.getBoolAttribs())
    builder.add(attrib.name.data(), attrib.value);
  for (auto const& attrib : element.getNumericAttribs())
    builder.add(attrib.name.data(), attrib.value);
  for (unsigned short i = 0; i < element.getNumChildren(); ++i) {
    Zo::Ptr<JSON::Element> child = element.getChild(i);
    write(*child, builder, child->getName().data());
  }
  builder.end();
}

// Names are compared only up to a NUL: the builder takes keys as C strings.
bool sameShape(JSON::Element const& a, JSON::Element const& b) {
  if (a.isArray() != b.isArray() || a.getNumChildren() != b.getNumChildren() ||
      a.getNumStringAttribs() != b.getNumStringAttribs() || a.getNumBoolAttribs() != b.getNumBoolAttribs() ||
      a.getNumNumericAttribs() != b.getNumNumericAttribs())
    return false;
  for (std::size_t i = 0; i < a.getStringAttribs().size(); ++i)
    if (a.getStringAttribs()[i].value != b.getStringAttribs()[i].value)
      return false;
  for (std::size_t i = 0; i < a.getNumericAttribs().size(); ++i) {
    double x = a.getNumericAttribs()[i].value;
    double y = b.getNumericAttribs()[i].value;
    if (std::memcmp(&x, &y, sizeof x) != 0)
      return false;
  }
  for (unsigned short i = 0; i < a.getNumChildren(); ++i)
    if (!sameShape(*a.getChild(i), *b.getChild(i)))
      return false;
  return true;
}

void checkRoundTrip(Zo::Ptr<JSON::Element> const& element) {
  if (!element)
    return;
  for (auto style : {JSON::Builder::kCompact, JSON::Builder::kPretty}) {
    JSON::Builder builder(style);
    write(*element, builder, nullptr);
    Zo::Ptr<JSON::Element> again = JSON::parse(LightweightString<wchar_t>::fromUTF8(builder.getText().view()));
    if (!again || !sameShape(*element, *again))
      std::abort();
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<char const*>(data), size);
  checkRoundTrip(JSON::parse(LightweightString<wchar_t>::fromUTF8(bytes)));

  std::wstring wide(size / sizeof(wchar_t), L'\0');
  std::memcpy(wide.data(), data, wide.size() * sizeof(wchar_t));
  checkRoundTrip(JSON::parse(LightweightString<wchar_t>(wide)));
  return 0;
}
