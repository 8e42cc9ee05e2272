#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/toolkit/Glob.h>

// What a widget's tooltip says.
struct ZO_API TooltipDetails {
  TooltipDetails() = default;
  TooltipDetails(UIString text) : text(std::move(text)) {}
  UIString text;
};

// A small window of text near the pointer. Its idstring, kTypeName, is the
// name other windows know tooltips by (Glob::isType).
class ZO_API TooltipWindow : public Glob {
public:
  static constexpr char const* kTypeName = "ZoToolTip";

  // A window of `size` with its bottom-left corner at `screenPosition`.
  TooltipWindow(LightweightString<wchar_t> const& text, XY<int> size, XY<int> screenPosition);
  char const* idstring() const override { return kTypeName; }
  eWindowKind windowKind() const override { return eWindowKind::kTip; }
  LightweightString<wchar_t> const& text() const noexcept { return text_; }
  // The size a tooltip of this text needs.
  static XY<int> calcSize(LightweightString<wchar_t> const& text);

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  LightweightString<wchar_t> text_;
};

// Tooltips appear when the pointer rests on a widget that has one for
// kRestMs, and go when it moves off that widget, a button or key is pressed,
// or the widget dies. User-interface thread only.
namespace Tooltips {
inline constexpr double kRestMs = 600.0;
// The input router tells of every pointer move and every press.
ZO_API void pointerMoved(Glob* under, XY<int> screen);
ZO_API void dismiss();
// The tooltip on show, or null.
ZO_API TooltipWindow* showing();
} // namespace Tooltips

// Turns tooltips on or off for the whole application (on by default).
ZO_API void ZoTooltipsEnable(bool enable);
ZO_API bool ZoTooltipsEnabled();
