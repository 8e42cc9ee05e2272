#pragma once

#include <zowidgets/values/params/Param.h>

namespace GenericParam {

using TextParamBase = Param<LightweightString<wchar_t>>;

// Free text. `hint` is ghost text for an empty box; `advance` asks the
// presenter to move to the next field when the entry is confirmed.
class ZO_API TextParam : public TextParamBase {
public:
  enum eFlags : unsigned int { kPlain = 1, kObfuscated = 2, kShowPasswordControl = 4 };

  TextParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
            LightweightString<wchar_t> const& value, UIString const& hint = {}, unsigned int flags = kPlain,
            bool advance = false)
      : TextParamBase("text", id, legend, tooltip, value), hint_(hint), flags_(flags), advance_(advance) {}
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new TextParam(*this)); }

  UIString const& getHint() const noexcept { return hint_; }
  unsigned int getFlags() const noexcept { return flags_; }
  bool isObfuscated() const noexcept { return (flags_ & kObfuscated) != 0; }
  bool getAdvance() const noexcept { return advance_; }

private:
  UIString hint_;
  unsigned int flags_;
  bool advance_;
};

// A row of text with nothing to edit; the value is the text.
class ZO_API LabelParam : public TextParamBase {
public:
  LabelParam(UIString const& legend, LightweightString<char> const& id, LightweightString<wchar_t> const& text,
             UIString const& tooltip = {})
      : TextParamBase("text", id, legend, tooltip, text) {}
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new LabelParam(*this)); }
};

// The value is a font family name.
class ZO_API FontParam : public TextParamBase {
public:
  FontParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
            LightweightString<wchar_t> const& family)
      : TextParamBase("font", id, legend, tooltip, family) {}
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new FontParam(*this)); }
};

// The value is a path.
class ZO_API FileParam : public TextParamBase {
public:
  FileParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
            LightweightString<wchar_t> const& path)
      : TextParamBase("file", id, legend, tooltip, path) {}
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new FileParam(*this)); }
};

} // namespace GenericParam
