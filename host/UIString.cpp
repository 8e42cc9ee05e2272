#include <zowidgets/host/UIString.h>

LightweightString<wchar_t> UIString::getString() const {
  if (id_ == kNoResource)
    return text_;
  auto resource = resourceStrW(id_);
  return resource.empty() ? text_ : resource;
}
