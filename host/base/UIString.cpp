#include <zowidgets/host/base/UIString.h>

LightweightString<wchar_t> UIString::getString() const {
  if (id_ == kNoResource)
    return text_;
  if (hasResourceString(id_)) {
    auto resource = resourceStrW(id_);
    if (!resource.empty())
      return resource;
  }
  // With no literal either, the placeholder shows which text is missing.
  return text_.empty() ? resourceStrW(id_) : text_;
}
