#pragma once

#include <zowidgets/host/base/StreamableTraits.h>
#include <zowidgets/host/drawing/FontDefinition.h>

// A FontDefinition with a layered binary form: a root chunk "$" holding one
// chunk "FD" with the font's fields (the family as UTF-8, the size, the
// style byte, then the background and text colours as four floats each).
class ZO_API FontDefinitionEx : public FontDefinition, public Streamable {
public:
  static constexpr char kShortName[] = "FD";
  static constexpr char kPrintableTypeName[] = "FontDefinitionEx";

  FontDefinitionEx() = default;
  explicit FontDefinitionEx(FontDefinition const& font) : FontDefinition(font) {}
  FontDefinitionEx(FontDefinitionEx const&) = default;
  FontDefinitionEx& operator=(FontDefinitionEx const&) = default;

  int STRM_hierarchyUnpack(PStream& stream) override;
  int STRM_hierarchyPack(PStream& stream) const override;
  Streamable* clone(BuilderType type) const override;
  LightweightString<char> hierarchyName(bool withRevisions, bool shortForm) const override;
  void assign(Streamable const* other) override;

  // This layer's payload.
  void pack(PStream& stream) const;
  void unpack(PStream& stream);
};
