// Every icon name the library uses, with its artwork at 1, 1.5 and 2 times
// its size (times the interface scale), and an unknown name showing the
// drawn stand-in.
#include "PageLayout.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/IconNames.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

constexpr double kIconSize = 16.0;
constexpr double kIconScales[] = {1.0, 1.5, 2.0};
constexpr char const* kUnknownName = "no-such-icon.png";

int scaled(double length) { return static_cast<int>(std::lround(length * UifStd::getScale())); }

// A column of names, each with its icon at the three sizes; a heading row
// names the sizes.
class IconSheet : public Glob {
public:
  static std::vector<std::string> names() {
    std::vector<std::string> all;
    for (IconName const& icon : iconNames())
      all.emplace_back(icon.ours);
    all.emplace_back(kUnknownName);
    return all;
  }
  static int rowHeight() { return std::max(UifStd::getRowHeight(), scaled(kIconSize * 2) + UifStd::getRowGap()); }
  static int nameWidth() {
    int widest = 0;
    for (std::string const& name : names())
      widest = std::max(widest, UifStd::measure(UIString(std::wstring(name.begin(), name.end()))).x);
    return widest + 2 * UifStd::getWidgetGap();
  }
  static int columnWidth() { return scaled(kIconSize * 2) + 2 * UifStd::getWidgetGap(); }
  static XY<int> calcSize() {
    return XY<int>(nameWidth() + columnWidth() * 3, rowHeight() * static_cast<int>(names().size() + 1));
  }

  explicit IconSheet(GlobCreationInfo const& info) : Glob(info) {}
  char const* idstring() const override { return "IconSheet"; }

protected:
  void draw(CanvasRenderer& renderer) override {
    Colour const text = getPalette().text();
    Glib::FontDesc const font = UifStd::getFont();
    int const row = rowHeight();
    int top = height();
    int x = nameWidth();
    for (wchar_t const* heading : {L"\u00d71", L"\u00d71.5", L"\u00d72"}) {
      renderer.renderPrimitive(Glib::TextDescription(heading, Zo::Box<double>(x, top - row, x + columnWidth(), top),
                                                     font, getPalette().text(-4), Glib::eTextAlignment::Centre));
      x += columnWidth();
    }
    for (std::string const& name : names()) {
      top -= row;
      std::wstring const label(name.begin(), name.end());
      renderer.renderPrimitive(
          Glib::TextDescription(LightweightString<wchar_t>(label.c_str()),
                                Zo::Box<double>(UifStd::getWidgetGap(), top - row, nameWidth(), top), font, text));
      x = nameWidth();
      for (double factor : kIconScales) {
        Zo::Image::Surface const icon = loadIcon(name, kIconSize * factor);
        XY<double> const corner(x + (columnWidth() - icon.width()) / 2, top - row + (row - icon.height()) / 2);
        renderer.renderPrimitive(Glib::ImageDescription(icon, corner));
        x += columnWidth();
      }
    }
  }
};

Glob* buildIconsPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const sheet = IconSheet::calcSize();
  StandardPanel* panel = openPageWindow(context, XY<int>(sheet.x + 2 * m.gap, sheet.y + 2 * m.rowGap), L"Icons");
  panel->createWidget<IconSheet>(GlobCreationInfo(sheet), Glob::UserTopLeft(m.gap, m.rowGap));
  return panel;
}

PageRegistrar const iconsPage{"icons", "Icons",
                              "Every icon name with its theme artwork at 1, 1.5 and 2 times its size, in the text "
                              "colour; an unknown name shows the drawn stand-in",
                              buildIconsPage};

} // namespace
