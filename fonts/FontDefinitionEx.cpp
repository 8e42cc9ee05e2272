#include <zowidgets/fonts/FontDefinitionEx.h>

namespace {

using RootLayer = StreamableTraits<Streamable, void>;
using FontLayer = StreamableTraits<FontDefinitionEx, Streamable>;

void packColour(StreamFile& file, NormalisedRGB const& colour) {
  for (float channel : {colour.r, colour.g, colour.b, colour.a})
    file.setFloat(channel);
}

NormalisedRGB unpackColour(StreamFile& file) {
  NormalisedRGB colour;
  colour.r = file.getFloat().value_or(0.0f);
  colour.g = file.getFloat().value_or(0.0f);
  colour.b = file.getFloat().value_or(0.0f);
  colour.a = file.getFloat().value_or(1.0f);
  return colour;
}

} // namespace

int FontDefinitionEx::STRM_hierarchyPack(PStream& stream) const {
  StreamableTraitsBase::PackStack stack;
  stack.push_back(FontLayer::entry(*this));
  return RootLayer::pack(*this, stream, stack);
}

int FontDefinitionEx::STRM_hierarchyUnpack(PStream& stream) {
  int const result = RootLayer::unpackHeaderAndObject(*this, stream);
  if (result != kPacked && result != kUnpacked)
    return result;
  return FontLayer::unpackHeaderAndObject(*this, stream);
}

// A copy of the fields and the revision, whatever the builder type.
Streamable* FontDefinitionEx::clone(BuilderType) const { return new FontDefinitionEx(*this); }

LightweightString<char> FontDefinitionEx::hierarchyName(bool, bool shortForm) const {
  if (shortForm)
    return kShortName;
  return STRM_L_Streamable_buildHierarchyName(getPrintableTypeName<FontDefinitionEx>());
}

void FontDefinitionEx::assign(Streamable const* other) {
  if (auto const* font = dynamic_cast<FontDefinitionEx const*>(other))
    *this = *font;
}

void FontDefinitionEx::pack(PStream& stream) const {
  // The family is stored up to a zero byte: a name stops at its first zero.
  LightweightString<char> const family = name.toUTF8();
  stream.writeBinary(family.view().substr(0, family.view().find('\0')));
  StreamFile& file = stream.file();
  file.setFloat(size);
  file.setCookedChar(style);
  packColour(file, bgColour);
  packColour(file, fgColour);
}

void FontDefinitionEx::unpack(PStream& stream) {
  StreamFile& file = stream.file();
  // A read past the end marks the stream; the caller sees its error flag.
  std::optional<LightweightString<char>> const family = file.getString();
  if (!family)
    return;
  name = LightweightString<wchar_t>::fromUTF8(family->view());
  size = file.getFloat().value_or(size);
  style = file.getCookedChar().value_or(style);
  bgColour = unpackColour(file);
  fgColour = unpackColour(file);
}
