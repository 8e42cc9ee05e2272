#include "support/WidgetTestSupport.h"

#include <zowidgets/colour/ColourPicker.h>
#include <zowidgets/colour/ColourPickerSuffixBox.h>
#include <zowidgets/colour/ColourSliderAdaptors.h>
#include <zowidgets/colour/ColourTextAdaptors.h>
#include <zowidgets/colour/ComponentTextBox.h>
#include <zowidgets/colour/EyeDropper.h>
#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/WidgetGroup.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <functional>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

// Every widget under `root`, depth first.
void forEachWidget(Glob& root, std::function<void(Glob&)> const& visit) {
  visit(root);
  for (Glob* child : root.getChildren())
    forEachWidget(*child, visit);
}

// How many widgets under `root` are bound to an adaptor of type A.
template <class A> int countAdaptors(Glob& root) {
  int count = 0;
  forEachWidget(root, [&](Glob& widget) {
    if (auto* bound = dynamic_cast<WidgetBase*>(&widget); bound && bound->getAdaptor().dynamicCast<A>())
      ++count;
  });
  return count;
}

// Passes the picker's outward writes to a server and counts them.
class CountingAdaptor : public ValAdaptor<ColourData, ColourData> {
public:
  using ValAdaptor::ValAdaptor;
  bool requestSetNewDataValue(ColourData const& value, DataChangeType type) override {
    ++writes;
    lastType = type;
    return ValAdaptor::requestSetNewDataValue(value, type);
  }
  int writes = 0;
  DataChangeType lastType = kDataChangeNone;
};

struct ColourPickerTest : HeadlessScreenTest {
  // Outlives the pickers, which close in TearDown.
  ValServer<ColourData> outside{ColourData(0.2, 0.4, 0.6)};
  Zo::Ptr<CountingAdaptor> adaptor{new CountingAdaptor(&outside)};
  std::vector<ColourPickerEvent> events;

  ColourPicker* openPicker(unsigned flags, ColourData const& colour, XY<int> at = XY<int>(100, 300)) {
    ColourPicker::InitArgs args(flags, colour);
    args.callback =
        Broadcaster<ColourPickerEvent>::makeCallback([this](ColourPickerEvent const& e) { events.push_back(e); });
    args.screenPosition = at;
    auto* picker = new ColourPicker(args);
    GlobManager::realize(picker);
    return picker;
  }
};

TEST_F(ColourPickerTest, IsLaidOutFromTheRowHeight) {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getWidgetGap();
  EXPECT_EQ(ColourPicker::calcColourWheelSize(), row * 4);
  EXPECT_EQ(ColourPicker::calcHSVGroupHeight(), row * 5 + (gap * 3 + row) / 2);
  EXPECT_EQ(ColourPicker::calcTextBoxWidth(), Button::calcWidth(UIString(L"R 255.00%")));
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags, ColourData());
  EXPECT_STREQ(picker->idstring(), "ColourPicker");
  EXPECT_EQ(picker->getSize(), ColourPicker::calcSize(ColourPicker::kDefaultFlags));
  EXPECT_EQ(picker->getUserArea().width(), row * 10);
  EXPECT_FALSE(picker->isResizable());
  EXPECT_FALSE(picker->isPersistable());
  Slider* red = picker->getComponentSlider(ColourData::kComponent0);
  EXPECT_EQ(red->width(), picker->calcSliderWidth());
  // Each slider ends at the right of its group, a widget gap in from its edge.
  EXPECT_EQ(red->getX() + red->width(), picker->getRGBGroup()->getUserArea().x1);
  EXPECT_EQ(picker->getWheel()->width(), row * 4);
  EXPECT_EQ(picker->getHSLGroup()->height(), ColourPicker::calcHSVGroupHeight());
  Slider* lightness = picker->getLightnessSlider();
  EXPECT_EQ(lightness->getX() + lightness->width(), picker->getHSLGroup()->getUserArea().x1);
}

TEST_F(ColourPickerTest, ThePickerAndItsWheelArePanelsAndValueWidgets) {
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags, ColourData(0.2, 0.4, 0.6));
  Glob* asWidget = picker;
  EXPECT_NE(dynamic_cast<StandardPanel*>(asWidget), nullptr);
  EXPECT_NE(dynamic_cast<ValWidget<ColourData>*>(asWidget), nullptr);
  // The panel's own frame: a drawn edge of the standard panel border.
  EXPECT_EQ(picker->getBorder().type(), StandardPanel::getDefaultBorder().type());
  EXPECT_EQ(picker->getBorder().thickness(), StandardPanel::getDefaultBorder().thickness());
  HSColourWheel* wheel = picker->getWheel();
  Glob* wheelWidget = wheel;
  EXPECT_NE(dynamic_cast<StandardPanel*>(wheelWidget), nullptr);
  EXPECT_NE(dynamic_cast<ValWidget<ColourData>*>(wheelWidget), nullptr);
  // The wheel has no frame: the gap round its disc is its own.
  EXPECT_EQ(wheel->getBorder().type(), 0);
  // The panel's tab order runs through its boxes: Tab from the red box
  // reaches the green one.
  ComponentTextBox* red = picker->getComponentBox(ColourData::kComponent0);
  ASSERT_NE(picker->getTabOrder(), nullptr);
  HeadlessInput::clickOn(*red);
  HeadlessInput::key(kKeyTab);
  EXPECT_EQ(get_kbd_focus(), picker->getComponentBox(ColourData::kComponent1));
}

TEST_F(ColourPickerTest, WithoutTheAlphaFlagThereIsNoAlphaGroupAndTheHeightIsOneGroupLower) {
  ColourPicker* plain = openPicker(ColourPicker::kDefaultFlags, ColourData());
  ColourPicker* withAlpha =
      openPicker(ColourPicker::kDefaultFlags | ColourPicker::kAlpha, ColourData(), XY<int>(600, 300));
  EXPECT_EQ(plain->getAlphaGroup(), nullptr);
  EXPECT_EQ(plain->getComponentBox(ColourData::kAlpha), nullptr);
  EXPECT_EQ(plain->getComponentSlider(ColourData::kAlpha), nullptr);
  EXPECT_EQ(countAdaptors<AlphaTextAdaptor>(*plain), 0);
  EXPECT_EQ(countAdaptors<AlphaSliderAdaptor>(*plain), 0);

  ASSERT_NE(withAlpha->getAlphaGroup(), nullptr);
  EXPECT_EQ(countAdaptors<AlphaTextAdaptor>(*withAlpha), 1);
  EXPECT_EQ(countAdaptors<AlphaSliderAdaptor>(*withAlpha), 1);
  int const alphaGroup = WidgetGroup::calcHeightForRows(1, UifStd::getRowHeight(), UifStd::getRowGap(), 1);
  EXPECT_EQ(withAlpha->getAlphaGroup()->height(), alphaGroup);
  EXPECT_EQ(withAlpha->height() - plain->height(), alphaGroup);
  EXPECT_EQ(withAlpha->width(), plain->width());
  // Both have the same bindings otherwise.
  for (ColourPicker* picker : {plain, withAlpha}) {
    EXPECT_EQ(countAdaptors<ColourComponentAdaptor>(*picker), 6);
    EXPECT_EQ(countAdaptors<RGBComponentAdaptor>(*picker), 3);
    EXPECT_EQ(countAdaptors<HexColourAdaptor>(*picker), 1);
    EXPECT_EQ(countAdaptors<LuminanceAdaptor>(*picker), 1);
  }
}

TEST_F(ColourPickerTest, EveryPartShowsTheColourItOpensOn) {
  ColourPicker* picker =
      openPicker(ColourPicker::kDefaultFlags | ColourPicker::kAlpha, ColourData(1.0, 0.5, 0.2, ColourSpace::RGB, 0.2));
  EXPECT_EQ(picker->getComponentBox(ColourData::kComponent0)->getString().str(), L"255");
  EXPECT_EQ(picker->getComponentBox(ColourData::kComponent1)->getString().str(), L"128");
  EXPECT_EQ(picker->getComponentBox(ColourData::kComponent2)->getString().str(), L"51");
  EXPECT_EQ(picker->getHexBox()->getString().str(), L"FF7F33");
  EXPECT_EQ(picker->getHueBox(0)->getString().str(), L"22.50");
  EXPECT_EQ(picker->getHueBox(1)->getString().str(), L"80.00");
  EXPECT_EQ(picker->getHueBox(2)->getString().str(), L"100.00");
  EXPECT_EQ(picker->getComponentBox(ColourData::kAlpha)->getString().str(), L"51");
  EXPECT_DOUBLE_EQ(picker->getComponentSlider(ColourData::kComponent1)->getPosition(), 0.5);
  EXPECT_DOUBLE_EQ(picker->getComponentSlider(ColourData::kAlpha)->getPosition(), 0.2);
  EXPECT_DOUBLE_EQ(picker->getLightnessSlider()->getPosition(), 1.0);
  double x = 0.0, y = 0.0;
  ASSERT_EQ(picker->getWheel()->convertHStoXY(22.5, 0.8, x, y), 0);
  EXPECT_NEAR(picker->getWheel()->getCursor().x, x, 1e-9);
  EXPECT_NEAR(picker->getWheel()->getCursor().y, y, 1e-9);
}

TEST_F(ColourPickerTest, TheFreeStandingPickerStartsOnRedOpaqueOnlyWithAnAlphaRow) {
  ColourPicker plain(UifStd::getColourScheme(), ColourPicker::kDefaultFlags);
  ColourPicker withAlpha(UifStd::getColourScheme(), ColourPicker::kDefaultFlags | ColourPicker::kAlpha);
  EXPECT_EQ(plain.getColour(), ColourData(1.0, 1.0, 1.0, ColourSpace::HSV, 0.0));
  EXPECT_EQ(withAlpha.getColour(), ColourData(1.0, 1.0, 1.0, ColourSpace::HSV, 1.0));
  EXPECT_EQ(plain.getSize(), ColourPicker::calcSize(ColourPicker::kDefaultFlags));
  EXPECT_EQ(withAlpha.getComponentBox(ColourData::kAlpha)->getString().str(), L"255");
  EXPECT_EQ(plain.getComponentBox(ColourData::kComponent0)->getString().str(), L"255");
}

TEST_F(ColourPickerTest, ComponentsHaveTheirNamesAndSliderColours) {
  EXPECT_EQ(ColourPicker::getDisplayName(ColourData::kComponent0).text().str(), L"R");
  EXPECT_EQ(ColourPicker::getDisplayName(ColourData::kComponent1).text().str(), L"G");
  EXPECT_EQ(ColourPicker::getDisplayName(ColourData::kComponent2).text().str(), L"B");
  EXPECT_EQ(ColourPicker::getDisplayName(ColourData::kAlpha).text().str(), L"A");
  EXPECT_EQ(rgbOf(ColourPicker::getSliderColour(ColourData::kComponent0)), (Rgb{255, 0, 0}));
  EXPECT_EQ(rgbOf(ColourPicker::getSliderColour(ColourData::kComponent1)), (Rgb{0, 255, 0}));
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags, ColourData());
  EXPECT_TRUE(
      near(rgbOf(picker->getComponentSlider(ColourData::kComponent2)->thumbColour()), rgbOf(Colour(0.2, 0.3, 1.0))));
  EXPECT_EQ(picker->getComponentBox(ColourData::kComponent2)->getTitle().text().str(), L"B");
  EXPECT_EQ(picker->getHueBox(0)->getTitle().text().str(), L"H");
  EXPECT_EQ(picker->getHexBox()->getTitle().text().str(), L"#");
  // Hue, saturation and value carry their units after the field.
  std::wstring const units[] = {L"\u00B0", L"%", L"%"};
  for (int component = 0; component < 3; ++component) {
    auto* box = dynamic_cast<ColourPickerSuffixBox*>(picker->getHueBox(component));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->getSuffix().str(), units[component]);
    EXPECT_EQ(box->getFieldBox().x1, box->width() - ColourPickerSuffixBox::suffixStripWidth());
    EXPECT_EQ(box->getFieldBox().width(), picker->getHexBox()->getFieldBox().width());
  }
  EXPECT_EQ(getDegreesString().str(), L"\u00B0");
}

TEST_F(ColourPickerTest, TheHexBoxTakesSixHexDigits) {
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags, ColourData());
  TextEditCore const& hex = picker->getHexBox()->editor();
  for (wchar_t c : std::wstring(L"0123456789ABCDEFabcdef"))
    EXPECT_TRUE(hex.accepts(c)) << static_cast<char>(c);
  EXPECT_FALSE(hex.accepts(L'g'));
  EXPECT_FALSE(hex.accepts(L'.'));
  HeadlessInput::clickOn(*picker->getHexBox(), XY<int>(picker->getHexBox()->getFieldBox().x0 + 2, 2));
  HeadlessInput::key('a', kKeyCtrl);
  HeadlessInput::typeText("12345678");
  EXPECT_EQ(picker->getHexBox()->getString().str(), L"123456");
}

TEST_F(ColourPickerTest, ColourFromOutsideIsShownAndNeverSentBack) {
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags, ColourData());
  picker->setDataAdaptor(adaptor);
  EXPECT_EQ(picker->getColour(), outside.get());
  outside = ColourData(0.0, 1.0, 0.0);
  EXPECT_EQ(picker->getColour(), ColourData(0.0, 1.0, 0.0));
  EXPECT_EQ(picker->getHexBox()->getString().str(), L"00FF00");
  EXPECT_EQ(adaptor->writes, 0);
  EXPECT_TRUE(events.empty());
}

TEST_F(ColourPickerTest, WritingTheCurrentColourFromOutsideChangesNothingAndDrawsNothing) {
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags, ColourData(0.2, 0.4, 0.6));
  picker->setDataAdaptor(adaptor);
  pump();
  std::vector<std::pair<Glob*, int>> paints;
  forEachWidget(*picker, [&](Glob& widget) { paints.emplace_back(&widget, widget.paintCount()); });
  int const wheelPaints = picker->getWheel()->paintCount();
  WString const hexBefore = picker->getHexBox()->getString();

  ColourData same = picker->getColour();
  picker->setNewWidgetValue(same, kRedrawNow);
  outside = ColourData(0.2, 0.4, 0.6);
  pump();

  for (auto const& [widget, count] : paints)
    EXPECT_EQ(widget->paintCount(), count) << widget->idstring();
  EXPECT_EQ(picker->getHexBox()->getString(), hexBefore);
  EXPECT_EQ(adaptor->writes, 0);
  EXPECT_TRUE(events.empty());

  // A different colour does repaint: the check above can fail.
  ColourData other(0.9, 0.1, 0.1);
  picker->setNewWidgetValue(other, kRedrawNow);
  pump();
  EXPECT_GT(picker->getWheel()->paintCount(), wheelPaints);
  EXPECT_NE(picker->getHexBox()->getString(), hexBefore);
}

TEST_F(ColourPickerTest, SetColourAssignsWithoutTellingAnyone) {
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags, ColourData(0.2, 0.4, 0.6));
  picker->setDataAdaptor(adaptor);
  picker->setColour(ColourData(1.0, 0.0, 0.0));
  EXPECT_EQ(picker->getColour(), ColourData(1.0, 0.0, 0.0));
  EXPECT_EQ(picker->getHexBox()->getString().str(), L"336699");
  EXPECT_EQ(adaptor->writes, 0);
  EXPECT_TRUE(events.empty());
}

TEST_F(ColourPickerTest, AnEditInThePanelGoesOutThenToListeners) {
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags, ColourData(0.2, 0.4, 0.6));
  picker->setDataAdaptor(adaptor);
  std::vector<ColourData> outsideWhenHeard;
  picker->addListener(Broadcaster<ColourPickerEvent>::makeCallback(
      [&](ColourPickerEvent const&) { outsideWhenHeard.push_back(outside.get()); }));
  picker->getComponentSlider(ColourData::kComponent0)->requestSetNewDataValue(1.0, kDataChangeAll);
  EXPECT_DOUBLE_EQ(outside.get().getRed(), 1.0);
  EXPECT_EQ(adaptor->writes, 1);
  EXPECT_EQ(adaptor->lastType, kDataChangeAll);
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].kind, ColourPickerEvent::kColourChanged);
  EXPECT_EQ(events[0].colour, picker->getColour());
  ASSERT_EQ(outsideWhenHeard.size(), 1u);
  EXPECT_EQ(outsideWhenHeard[0], events[0].colour);
}

TEST_F(ColourPickerTest, AnEyeDropperMessageSetsAnOpaqueColour) {
  ColourPicker* picker =
      openPicker(ColourPicker::kDefaultFlags | ColourPicker::kAlpha, ColourData(0.1, 0.1, 0.1, ColourSpace::RGB, 0.25));
  EXPECT_EQ(Glob::sendMsg(picker, "colour_eye_dropper HSV 120 0.5 0.002"), 1);
  EXPECT_EQ(picker->getColour(), ColourData(120.0, 0.5, 255.0 * 0.002, ColourSpace::HSV, 1.0));
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(picker->getComponentBox(ColourData::kAlpha)->getString().str(), L"255");
  // A range sample carries no numbers: only the alpha changes.
  picker->getComponentSlider(ColourData::kAlpha)->requestSetNewDataValue(0.5, kDataChangeAll);
  ColourData const before = picker->getColour();
  EXPECT_EQ(Glob::sendMsg(picker, ColEyeDropBase::kMessagePrefix), 1);
  EXPECT_NEAR(picker->getColour().getRed(), before.getRed(), 1e-9);
  EXPECT_NEAR(picker->getColour().getGreen(), before.getGreen(), 1e-9);
  EXPECT_EQ(picker->getColour().getAlpha(), 1.0);
  // Other messages are not the picker's.
  EXPECT_EQ(Glob::sendMsg(picker, "colour_eye_dropperHSV 1 1 1"), 0);
}

TEST_F(ColourPickerTest, DeactivatingFollowsTheModeFlags) {
  ColourPicker* picker = openPicker(ColourPicker::kHueControls | ColourPicker::kAlpha, ColourData());
  picker->setEnabledState(false);
  EXPECT_FALSE(picker->isActive());
  EXPECT_FALSE(picker->getHueBox(0)->isActive());
  EXPECT_FALSE(picker->getWheel()->isActive());
  EXPECT_FALSE(picker->getComponentBox(ColourData::kAlpha)->isActive());
  // The RGB rows are not under these flags.
  EXPECT_TRUE(picker->getComponentBox(ColourData::kComponent0)->isActive());
  picker->setEnabledState(true);
  EXPECT_TRUE(picker->getHueBox(2)->isActive());
  EXPECT_TRUE(picker->getWheel()->isActive());
  // The brightness slider is left inactive by any activation.
  EXPECT_FALSE(picker->getLightnessSlider()->isActive());

  ColourPicker* rgb = openPicker(ColourPicker::kRGBControls, ColourData(), XY<int>(600, 300));
  rgb->setActive(false, kRedrawNow);
  EXPECT_FALSE(rgb->getComponentBox(ColourData::kComponent1)->isActive());
  EXPECT_FALSE(rgb->getComponentSlider(ColourData::kComponent1)->isActive());
  EXPECT_TRUE(rgb->getHueBox(0)->isActive());
}

TEST_F(ColourPickerTest, DrawBarsRepaintsTheSlidersOfTheModeOnly) {
  ColourPicker* hue = openPicker(ColourPicker::kHueControls | ColourPicker::kAlpha, ColourData());
  ColourPicker* rgb = openPicker(ColourPicker::kRGBControls, ColourData(), XY<int>(600, 300));
  pump();
  auto paintsOf = [](Glob* widget) { return widget->paintCount(); };
  int const hueLightness = paintsOf(hue->getLightnessSlider());
  int const hueAlpha = paintsOf(hue->getComponentSlider(ColourData::kAlpha));
  int const hueRed = paintsOf(hue->getComponentSlider(ColourData::kComponent0));
  int const rgbGreen = paintsOf(rgb->getComponentSlider(ColourData::kComponent1));
  int const rgbLightness = paintsOf(rgb->getLightnessSlider());
  hue->drawBars();
  rgb->drawBars();
  pump();
  EXPECT_GT(paintsOf(hue->getLightnessSlider()), hueLightness);
  EXPECT_GT(paintsOf(hue->getComponentSlider(ColourData::kAlpha)), hueAlpha);
  EXPECT_EQ(paintsOf(hue->getComponentSlider(ColourData::kComponent0)), hueRed);
  EXPECT_GT(paintsOf(rgb->getComponentSlider(ColourData::kComponent1)), rgbGreen);
  EXPECT_EQ(paintsOf(rgb->getLightnessSlider()), rgbLightness);
}

TEST_F(ColourPickerTest, TabVisitsRGBThenHexHueSaturationValueThenAlpha) {
  ColourPicker* picker = openPicker(ColourPicker::kDefaultFlags | ColourPicker::kAlpha, ColourData());
  std::vector<Glob*> const expected{picker->getComponentBox(ColourData::kComponent0),
                                    picker->getComponentBox(ColourData::kComponent1),
                                    picker->getComponentBox(ColourData::kComponent2),
                                    picker->getHexBox(),
                                    picker->getHueBox(0),
                                    picker->getHueBox(1),
                                    picker->getHueBox(2),
                                    picker->getComponentBox(ColourData::kAlpha)};
  HeadlessInput::clickOn(*expected[0]);
  ASSERT_EQ(get_kbd_focus(), expected[0]);
  for (std::size_t i = 1; i < expected.size(); ++i) {
    HeadlessInput::key(kKeyTab);
    EXPECT_EQ(get_kbd_focus(), expected[i]) << i;
  }
}

} // namespace
