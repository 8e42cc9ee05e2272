#include <zowidgets/host/drawing/IconNames.h>

#include <algorithm>
#include <array>

namespace {

// Symbolic icons only: they are single-colour SVGs, so they take the
// palette's text colour and stay sharp at any scale.
constexpr std::array<IconName, 14> kIconNames{{
    {"eye-open.png", "view-reveal-symbolic"},
    {"eye-closed.png", "view-conceal-symbolic"},
    {"magnify.png", "system-search-symbolic"},
    {"tree-collapsed.png", "pan-end-symbolic"},
    {"tree-expanded.png", "pan-down-symbolic"},
    {"scroll-left.png", "pan-start-symbolic"},
    {"scroll-right.png", "pan-end-symbolic"},
    {"scroll-up.png", "pan-up-symbolic"},
    {"scroll-down.png", "pan-down-symbolic"},
    {"action-indicator.png", "process-working-symbolic"},
    {"poot.png", "window-close-symbolic"},
    {"eyedropper.png", "color-select-symbolic"},
    {"ParamView.png", "emblem-system-symbolic"},
    {"folder-up.png", "go-up-symbolic"},
}};

} // namespace

std::span<IconName const> iconNames() { return kIconNames; }

std::string_view themeIconName(std::string_view ours) {
  auto const found =
      std::find_if(kIconNames.begin(), kIconNames.end(), [ours](IconName const& icon) { return icon.ours == ours; });
  return found == kIconNames.end() ? std::string_view() : found->theme;
}
