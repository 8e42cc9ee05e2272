#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/popups/DropDownButtonBase.h>

namespace {

struct ButtonFontTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(400, 120), XY<int>(200, 200));
  }

  Button* addButton(bool autoResize) {
    Button::InitArgs args(UIString(L"Liberation Mono"), XY<int>(autoResize ? 0 : 240, 0));
    args.autoResize = autoResize;
    return panel->createWidget<Button>(args, Glob::UserTopLeft(UifStd::getWidgetGap(), UifStd::getWidgetGap()));
  }

  Zo::Image::Surface shotOf(Button const& button) {
    pump();
    return screen().grab(screenBoxOf(button));
  }
};

TEST_F(ButtonFontTest, TheDefaultFontIsTheInterfaceFont) {
  Button* button = addButton(false);
  EXPECT_EQ(button->getFont(), Glib::FontDesc());
  Zo::Image::Surface const before = shotOf(*button);
  button->setFont(Glib::FontDesc(UifStd::getFont().family(), 0, 0));
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(before, shotOf(*button)), 0);
}

TEST_F(ButtonFontTest, TheLabelIsDrawnInTheFontSet) {
  Button* button = addButton(false);
  Zo::Image::Surface const interfaceFont = shotOf(*button);
  button->setFont(Glib::FontDesc("Liberation Mono", 0, 0));
  Zo::Image::Surface const mono = shotOf(*button);
  EXPECT_GT(Zo::Image::Surface::compare(interfaceFont, mono).differingPixels, 20);
  button->setFont(Glib::FontDesc());
  EXPECT_EQ(Zo::Image::Surface::maxChannelDifference(interfaceFont, shotOf(*button)), 0);
}

TEST_F(ButtonFontTest, AnAutoResizingButtonFitsTheLabelInItsFont) {
  Button* button = addButton(true);
  int const interfaceWidth = button->width();
  EXPECT_EQ(interfaceWidth, Button::calcWidth(UIString(L"Liberation Mono")));
  Glib::FontDesc const mono("DejaVu Sans Mono", 0, Glib::FontDesc::kBold);
  button->setFont(mono);
  Glib::FontDesc sized = mono;
  sized.setSize(UifStd::getFont().size());
  EXPECT_EQ(button->width(), Button::calcWidth(UIString(L"Liberation Mono"), sized));
  EXPECT_GT(button->width(), interfaceWidth); // bold monospace is wider
}

} // namespace
