#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>

// One column of a TableWidget: its title, its width and what the user may do
// to it. A width of 0 takes a share of whatever the fixed columns leave.
class ZO_API TableColumnDescription {
public:
  TableColumnDescription() = default;
  explicit TableColumnDescription(UIString const& title, int width = 0) : title_(title), width_(width) {}

  UIString const& getTitle() const noexcept { return title_; }
  void setTitle(UIString const& title) { title_ = title; }
  int getWidth() const noexcept { return width_; }
  void setWidth(int width) { width_ = width > 0 ? width : 0; }
  // Whether the user may drag the column's right edge.
  bool isResizeable() const noexcept { return resizeable_; }
  void setResizeable(bool resizeable) { resizeable_ = resizeable; }
  // The least width a drag or a share leaves the column; 0 for the width of
  // its title.
  int getMinWidth() const noexcept { return minWidth_; }
  void setMinWidth(int width) { minWidth_ = width > 0 ? width : 0; }
  Glib::eTextAlignment getAlignment() const noexcept { return alignment_; }
  void setAlignment(Glib::eTextAlignment alignment) { alignment_ = alignment; }

  // The width a column needs to show `text` whole in `font` (the interface
  // font when default), margins included.
  static int calcSizeFor(LightweightString<wchar_t> const& text, Glib::FontDesc const& font = {});
  // The space kept clear on each side of a cell's text.
  static int textMargin();
  // The least width of this column: its own, or its title's.
  int calcMinWidth() const;

private:
  UIString title_;
  int width_ = 0;
  int minWidth_ = 0;
  bool resizeable_ = true;
  Glib::eTextAlignment alignment_ = Glib::eTextAlignment::Left;
};
