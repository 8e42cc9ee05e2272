#include <zowidgets/textentry/GhostLabel.h>

LightweightString<wchar_t> resolveGhostLabel(UIString const& label) {
  if (label.text().empty() && label.resId() != UIString::kNoResource)
    return resourceStrW(label.resId());
  return label.text();
}
