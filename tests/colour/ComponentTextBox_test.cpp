#include "support/WidgetTestSupport.h"

#include <zowidgets/colour/ColourTextAdaptors.h>
#include <zowidgets/colour/ComponentTextBox.h>
#include <zowidgets/host/toolkit/UifStd.h>

namespace {

using WString = LightweightString<wchar_t>;

struct ComponentTextBoxTest : HeadlessScreenTest {
  // Outlives the boxes bound to it, which close in TearDown.
  ValServer<ColourData> server{ColourData(0.5, 0.25, 1.0, ColourSpace::RGB, 1.0)};
  StandardPanel* panel = nullptr;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(400, 200), XY<int>(200, 200));
  }

  ComponentTextBox* addBox(UIString const& title, ValAdaptorBase<WString>* adaptor) {
    ComponentTextBox::InitArgs args(GlobCreationInfo(XY<int>(UifStd::getRowHeight() * 5, UifStd::getRowHeight())));
    args.title = title;
    Glob* const last = panel->getChildren().empty() ? nullptr : panel->getChildren().back();
    WidgetPosition const where = last ? Glob::Below(UifStd::getRowGap(), last) : Glob::UserTopLeft(0, 0);
    auto* box = panel->createWidget<ComponentTextBox>(args, where);
    box->setDataAdaptor(Zo::Ptr<ValAdaptorBase<WString>>(adaptor));
    return box;
  }

  // What a user does to replace a box's text and confirm it.
  static void retype(ComponentTextBox& box, std::string const& text) {
    HeadlessInput::clickOn(box, XY<int>(box.getFieldBox().x0 + box.getFieldBox().width() / 2, box.height() / 2));
    HeadlessInput::key('a', kKeyCtrl);
    HeadlessInput::typeText(text);
    HeadlessInput::key(kKeyReturn);
  }
};

TEST_F(ComponentTextBoxTest, IsARightAlignedBoxForDigitsAndAPoint) {
  ComponentTextBox* box = addBox(UIString(L"R"), new ColourComponentAdaptor(0, ColourSpace::RGB, &server));
  EXPECT_STREQ(box->idstring(), "ComponentTextBox");
  EXPECT_EQ(box->getAlignment(), Glib::eTextAlignment::Right);
  EXPECT_TRUE(box->editor().accepts(L'7'));
  EXPECT_TRUE(box->editor().accepts(L'.'));
  EXPECT_FALSE(box->editor().accepts(L'-'));
  EXPECT_FALSE(box->editor().accepts(L'x'));
  EXPECT_EQ(box->getString().str(), L"128");
}

TEST_F(ComponentTextBoxTest, TypingARedValueSetsTheColour) {
  ComponentTextBox* red = addBox(UIString(L"R"), new ColourComponentAdaptor(0, ColourSpace::RGB, &server));
  ComponentTextBox* hex = addBox(UIString(L"#"), new HexColourAdaptor(&server));
  retype(*red, "200");
  EXPECT_DOUBLE_EQ(server.get().getRed(), 200.0 / 255.0);
  EXPECT_DOUBLE_EQ(server.get().getGreen(), 0.25);
  // The hex box heard the change; it truncates where the component rounds.
  EXPECT_EQ(hex->getString().str(), L"C83FFF");
}

TEST_F(ComponentTextBoxTest, LettersAndSignsAreRefusedAsTheUserTypes) {
  ComponentTextBox* red = addBox(UIString(L"R"), new ColourComponentAdaptor(0, ColourSpace::RGB, &server));
  retype(*red, "-1x2");
  EXPECT_EQ(red->getString().str(), L"12");
  EXPECT_DOUBLE_EQ(server.get().getRed(), 12.0 / 255.0);
}

TEST_F(ComponentTextBoxTest, ATooLargeValueIsCappedAndShownCapped) {
  ComponentTextBox* green = addBox(UIString(L"G"), new ColourComponentAdaptor(1, ColourSpace::RGB, &server));
  retype(*green, "300");
  EXPECT_EQ(server.get().getGreen(), 1.0);
  EXPECT_EQ(green->getString().str(), L"255");
}

TEST_F(ComponentTextBoxTest, TypingSaturationInPercent) {
  ComponentTextBox* saturation = addBox(UIString(L"S"), new ColourComponentAdaptor(1, ColourSpace::HSV, &server));
  EXPECT_EQ(saturation->getString().str(), L"75.00");
  retype(*saturation, "50");
  EXPECT_NEAR(server.get().getSaturation(), 0.5, 1e-12);
  EXPECT_EQ(server.get().getColourSpace(), ColourSpace::RGB);
  EXPECT_EQ(saturation->getString().str(), L"50.00");
}

} // namespace
