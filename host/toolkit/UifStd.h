#pragma once

#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/drawing/Fonts.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/WidgetPosition.h>

#include <atomic>
#include <map>
#include <string>

// Named numbers of the look that components read and the application may
// set: appearances, margins, and the like.
class ZO_API Theme {
public:
  // Gives `key` a value unless it has one already.
  void registerParam(LightweightString<char> const& key, double defaultValue);
  void set(LightweightString<char> const& key, double value);
  bool has(LightweightString<char> const& key) const;
  double get(LightweightString<char> const& key, double fallback) const;
  int getInt(LightweightString<char> const& key, int fallback) const;

private:
  std::map<std::string, double, std::less<>> values_;
};

// The appearance singleton: the interface scale and every layout size, the
// standard fonts, the colour scheme and the theme.
//
// Every size comes from the base font size (kBaseFontSize pixels at scale 1)
// and the scale s. Each metric has a size at scale 1, derived from the base
// and rounded to whole pixels, and is that size times s, rounded:
//   default font size   13            -> 13, 20, 26 at s = 1, 1.5, 2
//   row height          base * 7/4    -> 23, 35, 46
//   widget gap          base * 3/10   ->  4,  6,  8
//   row gap             base / 4      ->  3,  5,  6
//   indent width        base * 3/20   ->  2,  3,  4
//   title font          base * 23/20  -> 15, 23, 30 (bold)
//   subheading font     base                        (bold)
//   subscript font      base * 4/5    -> 10, 15, 20
// so whole scales multiply every size exactly.
//
// The accessors are static so they read the same either way:
// UifStd::getRowHeight() or UifStd::instance().getRowHeight().
class ZO_API UifStd {
public:
  static constexpr int kBaseFontSize = Glib::kBaseFontSize;

  static UifStd& instance();

  // The interface scale, kept with the fonts (Glib::interfaceScale).
  static double getScale();
  // Scales at or below 0 (or not numbers) are ignored.
  static void setScale(double scale);

  static int getRowHeight();
  static int getRowGap();
  static int getWidgetGap();
  static int getIndentWidth();
  // Space on the given side (an eWidgetRelativity) between rows: the row gap
  // above or below, the widget gap to the left or right, none otherwise.
  static WidgetSurround getRowSeparator(int relativity);

  // Width and height in whole pixels of the text in the default font.
  static XY<int> measure(UIString const& text);

  static Glib::FontDesc getFont();
  static Glib::FontDesc getTitleFont();
  static Glib::FontDesc getSubheadingFont();
  static Glib::FontDesc getSubscriptFont();

  static Theme& getTheme();
  static void registerThemeParam(LightweightString<char> const& key, double defaultValue);

  static Palette const& getColourScheme();
  static void setColourScheme(Palette const& palette);

  // 0: windows float freely, and a drop-down raises the window it drops from;
  // 1: windows are arranged by the application.
  static int getWindowArrangement();
  static void setWindowArrangement(int arrangement);

private:
  UifStd() = default;

  std::atomic<int> windowArrangement_{0};
  Theme theme_;
  Palette colourScheme_;
};
