#pragma once

#include "support/WidgetTestSupport.h"

#include <zowidgets/diagnostics/GlobProbe.h>
#include <zowidgets/diagnostics/InfoWidget.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/Menu.h>

#include <string>

// A plain square of one colour, to be inspected.
class Swatch : public Glob {
public:
  Swatch(XY<int> size, Colour colour) : Glob(GlobCreationInfo(size)), colour_(colour) {}
  char const* idstring() const override { return "Swatch"; }

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), colour_));
  }

private:
  Colour colour_;
};

// A titled panel of 300 by 200 at (100, 100) with a swatch inside, and the
// ways a developer drives an inspector over them: the pointer, a drag of the
// inspector's title, the chord, the rows' menus.
struct InspectorTest : HeadlessScreenTest {
  static constexpr XY<int> kPanelAt{100, 100};
  static constexpr XY<int> kSwatchAt{40, 30};
  StandardPanel* panel = nullptr;
  Swatch* swatch = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(300, 200), kPanelAt, StandardPanel::kTitle, L"Target");
    swatch = addSwatch(XY<int>(60, 40), kSwatchAt, Colour(0.9, 0.2, 0.1));
    pump();
  }

  Swatch* addSwatch(XY<int> size, XY<int> at, Colour colour) const {
    return static_cast<Swatch*>(panel->addChild(new Swatch(size, colour), Glob::BottomLeft(at.x, at.y)));
  }
  // Opens an inspector the way the command does, with its hot spot at `at`.
  static GlobInspector* openInspectorAt(XY<int> at) {
    HeadlessInput::moveTo(at);
    GlobInspector* inspector = GlobInspector::create();
    pump();
    return inspector;
  }
  static XY<int> titlePoint(GlobInspector const& inspector) {
    Zo::Box<int> const bar = inspector.getTitleArea();
    return inspector.screenPosition() + XY<int>((bar.x0 + bar.x1) / 2, (bar.y0 + bar.y1) / 2);
  }
  // Drags the inspector by its title until its hot spot is at `spot`.
  static void dragHotSpotTo(GlobInspector const& inspector, XY<int> spot) {
    XY<int> const from = titlePoint(inspector);
    HeadlessInput::drag(from, from + (spot - (inspector.screenPosition() + inspector.getHotSpot())));
    pump();
  }
  // Left and right held together at `screen`, then let go.
  static void chordAt(XY<int> screen) {
    HeadlessInput::moveTo(screen);
    HeadlessInput::press(kMouseLeft);
    HeadlessInput::press(kMouseRight);
    HeadlessInput::release(kMouseRight);
    HeadlessInput::release(kMouseLeft);
    pump();
  }
  static XY<int> swatchCentreOnScreen(Swatch const& swatch) { return HeadlessInput::pointOn(swatch); }

  // The text of a row of the menu open on `row`, in order.
  static std::vector<std::wstring> menuTexts(GlobInspector::InfoWidget const& row) {
    std::vector<std::wstring> texts;
    if (MenuWindow const* menu = row.openMenu())
      for (MenuItem const& item : menu->menu().items())
        texts.push_back(item.text.getString().str());
    return texts;
  }
  static void openMenuOn(GlobInspector::InfoWidget const& row) {
    HeadlessInput::clickOn(row, kMouseRight);
    pump();
  }
  // Opens the row's menu and chooses `choice` under the heading `heading`.
  static void choose(GlobInspector::InfoWidget const& row, std::wstring const& heading, std::wstring const& choice) {
    openMenuOn(row);
    MenuWindow* menu = row.openMenu();
    ASSERT_TRUE(menu) << "no menu opened";
    std::vector<MenuItem> const& items = menu->menu().items();
    bool inSection = false;
    for (int index = 0; index < static_cast<int>(items.size()); ++index) {
      MenuItem const& item = items[static_cast<std::size_t>(index)];
      if (item.style == MenuItem::kHeading) {
        inSection = item.text.getString().str() == heading;
        continue;
      }
      if (inSection && item.text.getString().str() == choice) {
        Zo::Box<int> const box = menu->rowBox(index);
        HeadlessInput::clickOn(*menu, XY<int>((box.x0 + box.x1) / 2, (box.y0 + box.y1) / 2));
        pump();
        return;
      }
    }
    FAIL() << "no row " << std::string(choice.begin(), choice.end()) << " under the heading";
  }
  // One line of a row as "label value, label value".
  static std::wstring lineText(LabelledLine const& line) {
    std::wstring text;
    for (LabelledValue const& pair : line) {
      if (!text.empty())
        text += L"|";
      text += pair.label.str() + pair.value.str();
    }
    return text;
  }
  static std::vector<std::wstring> rowText(GlobInspector::InfoWidget const& row) {
    std::vector<std::wstring> lines;
    for (LabelledLine const& line : row.describe())
      lines.push_back(lineText(line));
    return lines;
  }
};
