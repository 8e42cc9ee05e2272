#include "support/WidgetTestSupport.h"

#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/buttons/CycleButton.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/buttons/detail/FocusRing.h>
#include <zowidgets/values/binding/ValAdaptor.h>
#include <zowidgets/values/notify/ValServer.h>

#include "host/drawing/IconTestSupport.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

// A panel that records the messages its children send it.
class MessageLog : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    messages.push_back(message.str());
    senders.push_back(sender);
    return 1;
  }
  std::vector<std::string> messages;
  std::vector<Glob*> senders;
};

struct ButtonTest : HeadlessScreenTest {
  MessageLog* panel = nullptr;
  std::vector<ButtonEvent> events;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    StandardPanel::InitArgs args(XY<int>(300, 200));
    args.screenPosition = XY<int>(200, 200);
    panel = new MessageLog(args);
    GlobManager::realize(panel);
  }

  // How many of the widget's pixels come nearer `colour` (by more than 30,
  // channels added) once it holds the keyboard: the ring's, for the ring's
  // colour. The ring is a line a pixel wide, smoothed, so its pixels lie
  // between it and what is under it.
  int pixelsTowardsOnFocus(Glob& widget, Colour const& colour) {
    Rgb const towards = rgbOf(colour);
    auto distances = [&] {
      std::vector<int> all;
      for (int y = 0; y < widget.height(); ++y)
        for (int x = 0; x < widget.width(); ++x) {
          Rgb const at = rgbOf(widgetPixel(widget, XY<int>(x, y)));
          all.push_back(std::abs(at.r - towards.r) + std::abs(at.g - towards.g) + std::abs(at.b - towards.b));
        }
      return all;
    };
    std::vector<int> const before = distances();
    widget.claimKbdFocus();
    pump();
    std::vector<int> const after = distances();
    int nearer = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
      nearer += before[i] - after[i] > 30 ? 1 : 0;
    return nearer;
  }

  template <class T> T* add(typename T::InitArgs const& args) {
    T* widget = panel->createWidget<T>(args, Glob::UserTopLeft(UifStd::getWidgetGap(), UifStd::getWidgetGap()));
    return widget;
  }

  // The named icon's solid pixels that the button shows in that colour,
  // drawn as the button draws it; and how many solid pixels it has.
  std::pair<int, int> iconPixelsShown(Button const& button, char const* name, Colour const& colour) {
    int const side = button.height() - UifStd::getWidgetGap() * 2;
    XY<int> const corner((button.width() - side) / 2, (button.height() - side) / 2);
    return HeadlessScreenTest::iconPixelsShown(button, name, side, corner, colour);
  }

  // The columns of a button where its label leaves ink: pixels unlike the
  // face at the button's left edge, on the rows the text crosses.
  int labelInkColumns(Button const& button) {
    int const y0 = button.height() / 4;
    int const y1 = button.height() * 3 / 4;
    std::uint32_t const face = widgetPixel(button, XY<int>(1, button.height() / 2));
    int columns = 0;
    for (int x = 1; x < button.width() - 1; ++x)
      for (int y = y0; y < y1; ++y)
        if (widgetPixel(button, XY<int>(x, y)) != face) {
          ++columns;
          break;
        }
    return columns;
  }

  Button* addButton(Button::InitArgs const& args) {
    Button* button = add<Button>(args);
    button->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const& e) { events.push_back(e); }));
    return button;
  }
};

TEST_F(ButtonTest, AClickTellsTheCallbackAndSendsTheMessageToTheParent) {
  Button* button = addButton(Button::InitArgs(L"Render", XY<int>(80, 0), "RenderPressed"));
  button->setName("render");
  HeadlessInput::clickOn(*button);
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].kind, ButtonEvent::kPressed);
  EXPECT_EQ(events[0].button, button);
  EXPECT_EQ(events[0].name, LightweightString<char>("render"));
  EXPECT_EQ(panel->messages, (std::vector<std::string>{"RenderPressed"}));
  EXPECT_EQ(panel->senders, (std::vector<Glob*>{button}));
}

TEST_F(ButtonTest, PressingThenDraggingOffBeforeReleasingIsNoClick) {
  Button* button = addButton(Button::InitArgs(L"Render", XY<int>(80, 0), "RenderPressed"));
  XY<int> const on = HeadlessInput::pointOn(*button);
  HeadlessInput::moveTo(on);
  HeadlessInput::press();
  EXPECT_TRUE(button->isPressedLook());
  HeadlessInput::moveTo(XY<int>(on.x + button->width() * 2, on.y));
  EXPECT_FALSE(button->isPressedLook());
  HeadlessInput::release();
  EXPECT_TRUE(events.empty());
  EXPECT_TRUE(panel->messages.empty());
}

TEST_F(ButtonTest, DraggingBackOnBeforeReleasingStillClicks) {
  Button* button = addButton(Button::InitArgs(L"Render", XY<int>(80, 0)));
  XY<int> const on = HeadlessInput::pointOn(*button);
  HeadlessInput::moveTo(on);
  HeadlessInput::press();
  HeadlessInput::moveTo(XY<int>(on.x + button->width() * 2, on.y));
  HeadlessInput::moveTo(on);
  HeadlessInput::release();
  EXPECT_EQ(events.size(), 1u);
}

TEST_F(ButtonTest, ALatchingButtonStaysDownUntilClickedAgain) {
  Button::InitArgs args(L"Solo", XY<int>(60, 0));
  args.latching = true;
  Button* button = addButton(args);
  EXPECT_EQ(button->getState(), 0);
  HeadlessInput::clickOn(*button);
  EXPECT_EQ(button->getState(), 1);
  HeadlessInput::clickOn(*button);
  EXPECT_EQ(button->getState(), 0);
  EXPECT_EQ(events.size(), 2u);
}

TEST_F(ButtonTest, SpaceAndReturnPressTheFocusedButtonOnly) {
  Button* button = addButton(Button::InitArgs(L"Render", XY<int>(80, 0)));
  HeadlessInput::key(' ');
  EXPECT_TRUE(events.empty()) << "not focused yet";
  ASSERT_TRUE(button->claimKbdFocus());
  HeadlessInput::key(' ');
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(events.size(), 2u);
  HeadlessInput::key('x');
  EXPECT_EQ(events.size(), 2u);
}

TEST_F(ButtonTest, AnInactiveButtonIgnoresClicks) {
  Button* button = addButton(Button::InitArgs(L"Render", XY<int>(80, 0)));
  button->setActive(false, kRedrawNow);
  HeadlessInput::clickOn(*button);
  EXPECT_TRUE(events.empty());
}

TEST_F(ButtonTest, TheLabelIsTheWidgetValueAndAutoResizeFollowsIt) {
  Button::InitArgs args(L"Go", XY<int>());
  args.autoResize = true;
  Button* button = addButton(args);
  EXPECT_EQ(button->width(), Button::calcWidth(UIString(L"Go")));
  EXPECT_EQ(button->height(), Button::calcHeight());
  int const shortWidth = button->width();
  LightweightString<wchar_t> longer(L"Go to the next marker");
  button->setNewWidgetValue(longer, kRedrawNow);
  EXPECT_EQ(button->getWidgetValue(), longer);
  EXPECT_GT(button->width(), shortWidth);
  EXPECT_EQ(button->width(), Button::calcWidth(UIString(longer)));
}

TEST_F(ButtonTest, AStringAdaptorDrivesTheLabel) {
  ValServer<LightweightString<wchar_t>> server(LightweightString<wchar_t>(L"Play"));
  Button* button = addButton(Button::InitArgs(L"", XY<int>(80, 0)));
  button->setDataAdaptor(Zo::Ptr<ValAdaptorBase<LightweightString<wchar_t>>>(
      new ValAdaptor<LightweightString<wchar_t>, LightweightString<wchar_t>>(&server)));
  EXPECT_EQ(button->getLabel(), LightweightString<wchar_t>(L"Play"));
  server = LightweightString<wchar_t>(L"Pause");
  EXPECT_EQ(button->getLabel(), LightweightString<wchar_t>(L"Pause"));
}

TEST_F(ButtonTest, SizesScaleWithTheInterface) {
  int const height = Button::calcHeight();
  int const indicator = Button::getRevealIndicatorWidth();
  UifStd::setScale(2.0);
  EXPECT_EQ(Button::calcHeight(), height * 2);
  EXPECT_EQ(Button::getRevealIndicatorWidth(), indicator * 2);
  UifStd::setScale(1.0);
}

TEST_F(ButtonTest, HoveringChangesOnlyTheButtonsLook) {
  Button::InitArgs args(L"Render", XY<int>(80, 0));
  Button* button = addButton(args);
  XY<int> const corner(button->width() / 2, 1);
  std::uint32_t const before = widgetPixel(*button, corner);
  HeadlessInput::moveTo(HeadlessInput::pointOn(*button));
  EXPECT_TRUE(button->isHovered());
  EXPECT_NE(widgetPixel(*button, corner), before);
  HeadlessInput::moveTo(XY<int>(10, 10));
  EXPECT_FALSE(button->isHovered());
  EXPECT_EQ(widgetPixel(*button, corner), before);
}

TEST_F(ButtonTest, AnIconAloneIsCentredAndLeadsALabel) {
  Zo::Image::Surface icon(4, 4);
  icon.fill(Colour(1.0, 0.0, 0.0));
  Button::InitArgs args(L"", XY<int>(80, 0));
  args.icon = icon;
  Button* alone = addButton(args);
  XY<int> const centre(alone->width() / 2, alone->height() / 2);
  EXPECT_EQ(rgbOf(widgetPixel(*alone, centre)), (Rgb{255, 0, 0}));
  EXPECT_NE(rgbOf(widgetPixel(*alone, XY<int>(UifStd::getWidgetGap() * 3, centre.y))), (Rgb{255, 0, 0}));
  alone->setActive(false, kRedrawNow);
  EXPECT_NE(rgbOf(widgetPixel(*alone, centre)), (Rgb{255, 0, 0})) << "faded when inactive";

  args.label = UIString(L"Record");
  args.autoResize = true;
  Button* led = panel->createWidget<Button>(args, Glob::Below(UifStd::getRowGap(), alone));
  int const iconCentre = UifStd::getWidgetGap() * 2 + (led->height() - UifStd::getWidgetGap() * 2) / 2;
  EXPECT_EQ(rgbOf(widgetPixel(*led, XY<int>(iconCentre, led->height() / 2))), (Rgb{255, 0, 0}));
  EXPECT_GT(led->width(), Button::calcWidth(UIString(L"Record")));
}

TEST_F(ButtonTest, ALabelWiderThanItsPaddedRoomIsShownWholeNotCut) {
  UIString const label(L"13");
  int const textWidth = UifStd::measure(label).x;
  // As narrow as a page index's number: the text and half a row.
  Button::InitArgs narrowArgs(label, XY<int>(textWidth + UifStd::getRowHeight() / 2, 0));
  narrowArgs.style = Button::kStyleFlat;
  Button* narrow = addButton(narrowArgs);
  ASSERT_LT(narrow->width(), Button::calcWidth(label)) << "narrower than the label and its padding";
  Button::InitArgs wideArgs(label, XY<int>(Button::calcWidth(label) + 20, 0));
  wideArgs.style = Button::kStyleFlat;
  Button* wide = panel->createWidget<Button>(wideArgs, Glob::Below(UifStd::getRowGap(), narrow));
  pump();
  int const whole = labelInkColumns(*wide);
  ASSERT_GT(whole, 0);
  EXPECT_EQ(labelInkColumns(*narrow), whole);
}

TEST_F(ButtonTest, AFlatButtonAndALinkShowTheKeyboardRingThoughTheyHaveNoFace) {
  Button::InitArgs flatArgs(UIString(L"Flat"), XY<int>(80, 0));
  flatArgs.style = Button::kStyleFlat;
  Button* flat = addButton(flatArgs);
  Button::InitArgs linkArgs(UIString(L"Project page"), XY<int>(120, 0));
  linkArgs.style = Button::kStyleLink;
  Button* link = panel->createWidget<Button>(linkArgs, Glob::Below(UifStd::getRowGap(), flat));
  Rgb const selection = rgbOf(panel->getPalette().selection());
  auto distance = [&selection](Rgb const& rgb) {
    return std::abs(rgb.r - selection.r) + std::abs(rgb.g - selection.g) + std::abs(rgb.b - selection.b);
  };
  for (Button* button : {flat, link}) {
    XY<int> const edge(button->width() / 2, 0);
    int const before = distance(rgbOf(widgetPixel(*button, edge)));
    button->claimKbdFocus();
    pump();
    // The ring's edge, smoothed, lies between the background and the
    // selection colour: well towards the latter.
    EXPECT_LT(distance(rgbOf(widgetPixel(*button, edge))), before / 2) << button->getLabel().str();
  }
}

TEST_F(ButtonTest, TheKeyboardRingShowsOverAFaceOfTheSelectionColour) {
  Button* plain = addButton(Button::InitArgs(UIString(L"Plain"), XY<int>(80, 0)));
  Button* blue = panel->createWidget<Button>(Button::InitArgs(UIString(L"OK"), XY<int>(80, 0)),
                                             Glob::Below(UifStd::getRowGap(), plain));
  blue->setFaceColour(panel->getPalette().selection());
  Checkbox::InitArgs tickedArgs(L"Loop", XY<int>());
  tickedArgs.checked = true;
  auto* ticked = panel->createWidget<Checkbox>(tickedArgs, Glob::Below(UifStd::getRowGap(), blue));
  pump();
  // Over a plain face the ring is the selection colour; over that colour
  // itself it takes the text colour, or it would not show.
  EXPECT_GT(pixelsTowardsOnFocus(*plain, plain->getPalette().selection()), 20);
  EXPECT_GT(pixelsTowardsOnFocus(*blue, blue->getPalette().text()), 20);
  // The box's ring half lies over the panel, where either colour shows: the
  // colour it takes is checked below; here, that it is drawn.
  EXPECT_GT(pixelsTowardsOnFocus(*ticked, ticked->getPalette().text()), 10);
}

TEST(FocusRingColour, TheSelectionColourUnlessTheFaceIsNearlyThatColour) {
  Palette palette = makeWindowPalette(UifStd::getColourScheme());
  Colour const selection = palette.selection();
  EXPECT_EQ(FocusRing::colourOver(palette, palette.window()), Colour::mix(selection, palette.text(), 0.7));
  EXPECT_EQ(FocusRing::colourOver(palette, selection), palette.text());
  Colour const nearly(selection.red() + 0.1, selection.green() - 0.1, selection.blue());
  EXPECT_EQ(FocusRing::colourOver(palette, nearly), palette.text());
}

TEST_F(ButtonTest, ATrailingIconFollowsTheLabel) {
  Zo::Image::Surface icon(4, 4);
  icon.fill(Colour(1.0, 0.0, 0.0));
  Button::InitArgs args(L"Next", XY<int>());
  args.icon = icon;
  args.autoResize = true;
  Button* button = addButton(args);
  button->setIconTrailing(true);
  int const side = button->height() - UifStd::getWidgetGap() * 2;
  int const padding = UifStd::getWidgetGap() * 2;
  int const y = button->height() / 2;
  EXPECT_EQ(rgbOf(widgetPixel(*button, XY<int>(button->width() - padding - side / 2, y))), (Rgb{255, 0, 0}));
  EXPECT_NE(rgbOf(widgetPixel(*button, XY<int>(padding + side / 2, y))), (Rgb{255, 0, 0}))
      << "the leading place is left to the label";
  button->setIconTrailing(false);
  EXPECT_EQ(rgbOf(widgetPixel(*button, XY<int>(padding + side / 2, y))), (Rgb{255, 0, 0}));
}

TEST_F(ButtonTest, AButtonThatIgnoresClicksPassesMouseAndKeysByButStillPresses) {
  Button::InitArgs args(L"3", XY<int>(60, 0), "numberPressed");
  args.latching = true;
  Button* button = addButton(args);
  HeadlessInput::clickOn(*button);
  ASSERT_EQ(button->getState(), 1);
  EXPECT_TRUE(button->isHovered());
  button->setIgnoresClicks(true);
  EXPECT_FALSE(button->isHovered()) << "the hover look goes with the input";
  HeadlessInput::clickOn(*button);
  ASSERT_TRUE(button->claimKbdFocus());
  HeadlessInput::key(' ');
  EXPECT_EQ(button->getState(), 1) << "still latched";
  EXPECT_EQ(events.size(), 1u);
  button->press();
  EXPECT_EQ(button->getState(), 0);
  EXPECT_EQ(events.size(), 2u);
  button->setIgnoresClicks(false);
  HeadlessInput::clickOn(*button);
  EXPECT_EQ(button->getState(), 1);
  EXPECT_EQ(events.size(), 3u);
}

TEST_F(ButtonTest, AFaceColourOverridesThePaletteUntilMadeInvalid) {
  Button* button = addButton(Button::InitArgs(L"Grade", XY<int>(80, 0)));
  XY<int> const onFace(UifStd::getWidgetGap(), button->height() / 2);
  Rgb const paletteFace = rgbOf(widgetPixel(*button, onFace));
  button->setFaceColour(Colour(0.0, 0.5, 0.0));
  EXPECT_TRUE(near(rgbOf(widgetPixel(*button, onFace)), Rgb{0, 128, 0}));
  button->setFaceColour(Colour::invalid());
  EXPECT_EQ(rgbOf(widgetPixel(*button, onFace)), paletteFace);
}

TEST_F(ButtonTest, PushButtonsNeverLatch) {
  PushButton::InitArgs args(L"OK", XY<int>(60, 0));
  args.latching = true;
  PushButton* button = add<PushButton>(args);
  HeadlessInput::clickOn(*button);
  EXPECT_EQ(button->getState(), 0);
  EXPECT_STREQ(button->idstring(), "PushButton");
}

TEST_F(ButtonTest, ALinkButtonOpensItsLinkThroughTheShell) {
  OS().clearRecordedShellRequests();
  LinkButton* link = add<LinkButton>(LinkButton::InitArgs(L"https://example.org/help", L"Help"));
  EXPECT_EQ(link->getLabel(), LightweightString<wchar_t>(L"Help"));
  EXPECT_EQ(link->width(), Button::calcWidth(UIString(L"Help")));
  HeadlessInput::clickOn(*link);
  std::vector<Zo::ShellRequest> const requests = OS().recordedShellRequests();
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests[0].kind, Zo::ShellRequest::Kind::open);
  EXPECT_EQ(requests[0].targets, (std::vector<LightweightString<wchar_t>>{L"https://example.org/help"}));
  OS().clearRecordedShellRequests();
}

TEST_F(ButtonTest, ACommandButtonRunsItsCommandWithItselfAsOrigin) {
  EventHandler* origin = nullptr;
  int runs = 0;
  Cmd::Function const body = [&](Cmd::Context const& context) {
    origin = context.origin;
    ++runs;
  };
  CommandRegistrar registrar("test.buttons.render", body, UIString(), UIString(), kCmdScopeApplication, MapItem());
  CommandButton* button = add<CommandButton>(CommandButton::InitArgs(L"Render", XY<int>(80, 0), "test.buttons.render"));
  HeadlessInput::clickOn(*button);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(origin, button);
}

TEST_F(ButtonTest, ACycleButtonStepsThroughItsStringsAndWraps) {
  CycleButton* cycle = add<CycleButton>(CycleButton::InitArgs({L"Off", L"Low", L"High"}, XY<int>(80, 0)));
  EXPECT_EQ(cycle->getLabel(), LightweightString<wchar_t>(L"Off"));
  HeadlessInput::clickOn(*cycle);
  EXPECT_EQ(cycle->getPickState(), 1);
  EXPECT_EQ(cycle->getLabel(), LightweightString<wchar_t>(L"Low"));
  HeadlessInput::clickOn(*cycle);
  HeadlessInput::clickOn(*cycle);
  EXPECT_EQ(cycle->getPickState(), 0);
  EXPECT_EQ(cycle->getLabel(), LightweightString<wchar_t>(L"Off"));
  cycle->setPickState(7);
  EXPECT_EQ(cycle->getPickState(), 0);
}

TEST_F(ButtonTest, ANamedIconIsDrawnAtTheButtonsSizeInTheLabelColour) {
  ScopedEnv themeFromTheSystem("ZOWIDGETS_ICON_THEME_DIR", std::nullopt);
  Button* button = add<Button>(Button::InitArgs(UIString(), XY<int>(UifStd::getRowHeight(), UifStd::getRowHeight())));
  button->setIconName("eye-open.png");
  pump();
  auto const [matching, solid] = iconPixelsShown(*button, "eye-open.png", button->getPalette().text());
  EXPECT_GT(solid, 10);
  EXPECT_EQ(matching, solid);
  // Inactive, it takes the dimmed label colour.
  button->setActive(false, kRedrawNow);
  Colour const dimmed = Colour::mix(button->getPalette().text(), button->getPalette().window(), 0.45);
  auto const [dimMatching, dimSolid] = iconPixelsShown(*button, "eye-open.png", dimmed);
  EXPECT_EQ(dimMatching, dimSolid);
}

TEST_F(ButtonTest, ACycleButtonShowsTheIconOfEachState) {
  ScopedEnv themeFromTheSystem("ZOWIDGETS_ICON_THEME_DIR", std::nullopt);
  int const row = UifStd::getRowHeight();
  CycleButton* cycle = add<CycleButton>(CycleButton::InitArgs({}, XY<int>(row, row)));
  cycle->setPickIcons({"eye-closed.png", "eye-open.png"});
  // Icons alone make the states.
  EXPECT_EQ(cycle->stateCount(), 2u);
  EXPECT_EQ(cycle->getPickState(), 0);
  EXPECT_EQ(cycle->getIconName(), "eye-closed.png");
  pump();
  auto const [closedMatching, closedSolid] = iconPixelsShown(*cycle, "eye-closed.png", cycle->getPalette().text());
  EXPECT_GT(closedSolid, 10);
  EXPECT_EQ(closedMatching, closedSolid);
  HeadlessInput::clickOn(*cycle);
  EXPECT_EQ(cycle->getPickState(), 1);
  EXPECT_EQ(cycle->getIconName(), "eye-open.png");
  HeadlessInput::clickOn(*cycle);
  EXPECT_EQ(cycle->getPickState(), 0);
  EXPECT_EQ(cycle->getIconName(), "eye-closed.png");
  // Changing the icons keeps the state.
  cycle->setPickState(1);
  cycle->setPickIcons({"magnify.png", "poot.png"});
  EXPECT_EQ(cycle->getPickState(), 1);
  EXPECT_EQ(cycle->getIconName(), "poot.png");
}

TEST_F(ButtonTest, ACheckboxTogglesItsDataThroughItsAdaptor) {
  ValServer<bool> server(false);
  Checkbox* box = add<Checkbox>(Checkbox::InitArgs(L"Loop playback", XY<int>()));
  box->setDataAdaptor(Zo::Ptr<ValAdaptorBase<bool>>(new ValAdaptor<bool, bool>(&server)));
  std::vector<CheckboxEvent> toggles;
  box->setCallback(Broadcaster<CheckboxEvent>::makeCallback([&](CheckboxEvent const& e) { toggles.push_back(e); }));
  HeadlessInput::clickOn(*box);
  EXPECT_TRUE(server.get());
  EXPECT_TRUE(box->isChecked());
  ASSERT_EQ(toggles.size(), 1u);
  EXPECT_TRUE(toggles[0].checked);
  EXPECT_EQ(toggles[0].checkbox, box);
  HeadlessInput::clickOn(*box);
  EXPECT_FALSE(server.get());
  server = true;
  EXPECT_TRUE(box->isChecked()) << "the data drives the box";
  box->claimKbdFocus();
  HeadlessInput::key(' ');
  EXPECT_FALSE(server.get());
  EXPECT_EQ(toggles.size(), 3u);
  HeadlessInput::key(kKeyReturn);
  EXPECT_EQ(toggles.size(), 3u) << "Return is left to the panel";
  EXPECT_FALSE(server.get());
}

TEST_F(ButtonTest, TheCheckboxAppearanceComesFromTheTheme) {
  EXPECT_EQ(Checkbox::getDefaultAppearance(), Checkbox::kTickBox);
  UifStd::getTheme().set("checkbox.appearance", Checkbox::kSwitch);
  EXPECT_EQ(Checkbox::getDefaultAppearance(), Checkbox::kSwitch);
  UifStd::getTheme().set("checkbox.appearance", Checkbox::kTickBox);
}

} // namespace
