#include "support/PatchWindow.h"
#include "support/WidgetTestSupport.h"

#include "host/drawing/IconTestSupport.h"

#include <zowidgets/colour/EyeDropper.h>
#include <zowidgets/colour/EyeDropperIcon.h>
#include <zowidgets/colour/MagnifyTool.h>
#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace {

std::uint32_t opaque(int r, int g, int b) { return 0xff000000u | std::uint32_t(r) << 16 | std::uint32_t(g) << 8 | b; }

// The dropper's parent: remembers the messages it is sent.
class DropperPanel : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  int handleMessageEvent(LightweightString<char> const& message, Glob*) override {
    messages.push_back(message.str());
    return 1;
  }
  std::vector<std::string> messages;
};

// The colour a message carries, undoing the value's division by 255.
Rgb colourIn(std::string const& message) {
  double h = -1.0, s = -1.0, v = -1.0;
  EXPECT_EQ(ColEyeDropBase::parse(message.c_str(), h, s, v), 0);
  ColourData const colour(h, s, v * 255.0, ColourSpace::HSV);
  auto byte = [](double channel) { return static_cast<int>(std::lround(channel * 255.0)); };
  return Rgb{byte(colour.getRed()), byte(colour.getGreen()), byte(colour.getBlue())};
}

struct EyeDropperTest : HeadlessScreenTest {
  DropperPanel* panel = nullptr;
  colourEyeDropper* dropper = nullptr;
  Button* other = nullptr;
  int otherPresses = 0;

  void SetUp() override {
    HeadlessScreenTest::SetUp();
    int const row = UifStd::getRowHeight();
    StandardPanel::InitArgs args(XY<int>(row * 8, row * 3));
    args.screenPosition = XY<int>(100, 700);
    panel = new DropperPanel(args);
    dropper = panel->createWidget<colourEyeDropper>(colourEyeDropper::InitArgs(row, row), Glob::UserTopLeft(0, 0));
    other = panel->createWidget<Button>(Button::InitArgs(UIString(L"Other"), XY<int>(row * 4, row)),
                                        Glob::RightOf(UifStd::getWidgetGap(), dropper));
    other->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { ++otherPresses; }));
    GlobManager::realize(panel);
  }

  void startCapture() {
    HeadlessInput::clickOn(*dropper);
    ASSERT_TRUE(dropper->enabled());
  }
  std::vector<std::string> const& messages() const { return panel->messages; }
};

TEST_F(EyeDropperTest, PickingFromAPatchSendsItsExactColour) {
  PatchWindow patch(Zo::Box<int>(600, 300, 700, 400), [](int, int) { return opaque(0x33, 0x66, 0xcc); });
  HeadlessInput::clickOn(*dropper);
  EXPECT_TRUE(dropper->enabled());
  EXPECT_EQ(dropper->getState(), 1);
  EXPECT_EQ(screen().cursor(), CursorCapturer::kCaptureCursor);
  EXPECT_FALSE(ZoTooltipsEnabled());
  EXPECT_EQ(getEventInterceptStack().top(), dropper);
  MagnifyTool* lens = dropper->getMagnifier();
  ASSERT_NE(lens, nullptr);
  EXPECT_EQ(lens->getStyle(), MagnifyTool::kLens);
  EXPECT_EQ(lens->getLevel(), CursorCapturer::kLensLevel);
  EXPECT_EQ(lens->screenPosition(), CursorCapturer::lensPositionFor(HeadlessInput::pointOn(*dropper)));
  EXPECT_TRUE(messages().empty());

  HeadlessInput::click(XY<int>(650, 350));
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_EQ(messages()[0].rfind(ColEyeDropBase::kMessagePrefix, 0), 0u) << messages()[0];
  EXPECT_EQ(colourIn(messages()[0]), (Rgb{0x33, 0x66, 0xcc}));
  EXPECT_FALSE(dropper->enabled());
  EXPECT_EQ(dropper->getState(), 0);
  EXPECT_EQ(dropper->getMagnifier(), nullptr);
  EXPECT_FALSE(is_good_glob_ptr(lens));
  EXPECT_EQ(screen().cursor(), 0);
  EXPECT_TRUE(ZoTooltipsEnabled());
  EXPECT_TRUE(getEventInterceptStack().empty());
}

TEST_F(EyeDropperTest, APressAndReleaseInOnePlaceSamplesAOnePixelBox) {
  // A checkerboard: any box larger than a pixel would mix the two colours.
  PatchWindow patch(Zo::Box<int>(600, 300, 640, 340),
                    [](int x, int row) { return (x + row) % 2 ? opaque(200, 40, 40) : opaque(40, 40, 200); });
  startCapture();
  XY<int> const at(617, 322);
  HeadlessInput::moveTo(at);
  HeadlessInput::press();
  EXPECT_EQ(dropper->getAreaToSample(), Zo::Box<double>(617, 322, 618, 323));
  HeadlessInput::release();
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_EQ(colourIn(messages()[0]), rgbOf(patch.colourAt(at)));
  EXPECT_EQ(messages()[0],
            ColEyeDropBase::pixelToMsg(ColEyeDropBase::getPixelColour(Zo::Box<double>(617, 322, 618, 323))).str());
}

TEST_F(EyeDropperTest, DraggingLeftAndDownGivesTheSameBoxAsRightAndUp) {
  PatchWindow patch(Zo::Box<int>(600, 300, 700, 400),
                    [](int x, int row) { return opaque(x * 2, row * 2, (x * row) % 256); });
  XY<int> const lowLeft(610, 320);
  XY<int> const highRight(619, 326);
  Zo::Box<double> const expected(610, 320, 620, 327);

  startCapture();
  HeadlessInput::moveTo(lowLeft);
  HeadlessInput::press();
  HeadlessInput::moveTo(highRight);
  EXPECT_EQ(dropper->getAreaToSample(), expected);
  ASSERT_NE(dropper->getMagnifier(), nullptr);
  EXPECT_EQ(dropper->getMagnifier()->getHighlight(), expected);
  HeadlessInput::release();

  startCapture();
  HeadlessInput::moveTo(highRight);
  HeadlessInput::press();
  HeadlessInput::moveTo(lowLeft);
  EXPECT_EQ(dropper->getAreaToSample(), expected);
  EXPECT_EQ(dropper->getMagnifier()->getHighlight(), expected);
  HeadlessInput::release();

  ASSERT_EQ(messages().size(), 2u);
  EXPECT_EQ(messages()[0], messages()[1]);
  // The integer mean of the 10 by 7 pixels, worked out here from the patch.
  long long sums[3] = {0, 0, 0};
  for (int y = 320; y < 327; ++y)
    for (int x = 610; x < 620; ++x) {
      Rgb const pixel = rgbOf(patch.colourAt(XY<int>(x, y)));
      sums[0] += pixel.b;
      sums[1] += pixel.g;
      sums[2] += pixel.r;
    }
  RgbTriple_<unsigned char> mean{};
  for (int channel = 0; channel < 3; ++channel)
    mean[channel] = static_cast<unsigned char>(sums[channel] / 70);
  EXPECT_EQ(messages()[0], ColEyeDropBase::pixelToMsg(mean).str());
}

TEST_F(EyeDropperTest, EscapeWhileDraggingSendsNothing) {
  PatchWindow patch(Zo::Box<int>(600, 300, 700, 400), [](int, int) { return opaque(10, 200, 30); });
  startCapture();
  MagnifyTool* lens = dropper->getMagnifier();
  HeadlessInput::moveTo(XY<int>(610, 310));
  HeadlessInput::press();
  HeadlessInput::moveTo(XY<int>(640, 330));
  HeadlessInput::key(kKeyEscape);
  EXPECT_FALSE(dropper->enabled());
  EXPECT_EQ(dropper->getState(), 0);
  EXPECT_FALSE(is_good_glob_ptr(lens));
  EXPECT_LT(dropper->getAreaStart().x, 0.0);
  HeadlessInput::release();
  EXPECT_TRUE(messages().empty());
  EXPECT_FALSE(dropper->enabled());
}

TEST_F(EyeDropperTest, PressOverTheButtonWhileCapturingDoesNothing) {
  startCapture();
  HeadlessInput::moveTo(HeadlessInput::pointOn(*dropper));
  HeadlessInput::press();
  EXPECT_TRUE(dropper->enabled());
  EXPECT_LT(dropper->getAreaStart().x, 0.0);
  EXPECT_NE(dropper->getMagnifier(), nullptr);
  EXPECT_TRUE(messages().empty());
  // Letting go over the button ends the capture, still without a sample.
  HeadlessInput::release();
  EXPECT_FALSE(dropper->enabled());
  EXPECT_TRUE(messages().empty());
}

TEST_F(EyeDropperTest, AGreyAreaInRangeModeGivesMinusOneInAllSix) {
  PatchWindow grey(Zo::Box<int>(600, 300, 700, 400),
                   [](int x, int) { return x < 50 ? opaque(128, 128, 128) : 0xff000000u; });
  dropper->setSampleMode(CursorCapturer::kSampleRange);
  startCapture();
  HeadlessInput::drag(XY<int>(620, 320), XY<int>(680, 380));
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_EQ(messages()[0], ColEyeDropBase::kMessagePrefix);
  for (double bound : dropper->getRange())
    EXPECT_EQ(bound, -1.0);
}

TEST_F(EyeDropperTest, RangeModeGivesTheHueSaturationAndValueRangeOfTheArea) {
  PatchWindow halves(Zo::Box<int>(600, 300, 700, 400), [](int x, int) {
    if (x < 30)
      return opaque(255, 0, 0);
    return x < 60 ? opaque(0, 0, 0) : opaque(0, 102, 51);
  });
  dropper->setSampleMode(CursorCapturer::kSampleRange);
  startCapture();
  HeadlessInput::drag(XY<int>(610, 320), XY<int>(690, 380));
  ASSERT_EQ(messages().size(), 1u);
  double h = 0, s = 0, v = 0;
  RGBToHSV(0.0, 0.4, 0.2, h, s, v);
  std::array<double, 6> const expected{0.0, h, 1.0, 1.0, v, 1.0};
  EXPECT_EQ(dropper->getRange(), expected);
}

TEST_F(EyeDropperTest, SampleOnPressStyleSendsAtThePress) {
  PatchWindow patch(Zo::Box<int>(600, 300, 700, 400), [](int, int) { return opaque(250, 128, 0); });
  dropper->setDropperStyle(CursorCapturer::kSampleOnPress);
  EXPECT_EQ(dropper->getDropperStyle(), CursorCapturer::kSampleOnPress);
  startCapture();
  HeadlessInput::moveTo(XY<int>(650, 350));
  HeadlessInput::press();
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_EQ(colourIn(messages()[0]), (Rgb{250, 128, 0}));
  EXPECT_TRUE(dropper->enabled());
  HeadlessInput::release();
  EXPECT_FALSE(dropper->enabled());
  EXPECT_EQ(messages().size(), 1u);
}

TEST_F(EyeDropperTest, WhileCapturingNoOtherWidgetGetsTheMouse) {
  startCapture();
  HeadlessInput::click(XY<int>(900, 500), kMouseRight);
  EXPECT_TRUE(dropper->enabled());
  HeadlessInput::clickOn(*other, kMouseRight);
  EXPECT_TRUE(dropper->enabled());
  HeadlessInput::clickOn(*other);
  EXPECT_EQ(otherPresses, 0);
  EXPECT_FALSE(dropper->enabled());
  ASSERT_EQ(messages().size(), 1u);
  // Once the capture is over, the other button works again.
  HeadlessInput::clickOn(*other);
  EXPECT_EQ(otherPresses, 1);
}

TEST_F(EyeDropperTest, TheLensFollowsThePointerAndStaysOnTheScreen) {
  startCapture();
  for (XY<int> at : {XY<int>(500, 500), XY<int>(520, 470), XY<int>(1915, 5), XY<int>(0, 1079)}) {
    HeadlessInput::moveTo(at);
    MagnifyTool* lens = dropper->getMagnifier();
    ASSERT_NE(lens, nullptr);
    EXPECT_EQ(lens->screenPosition(), CursorCapturer::lensPositionFor(at));
    Zo::Box<int> const onScreen = lens->canvas()->screenBox();
    EXPECT_EQ(MagnifyTool::getScreenRect(onScreen), onScreen);
    EXPECT_EQ(screen().cursor(), CursorCapturer::kCaptureCursor);
  }
  int const side = CursorCapturer::lensSide();
  EXPECT_EQ(CursorCapturer::lensPositionFor(XY<int>(500, 500)),
            XY<int>(500 + UifStd::getRowHeight() * 2 / 3, 500 - side));
}

TEST_F(EyeDropperTest, TheLensKeepsClearOfTheAreaBeingSampled) {
  PatchWindow patch(Zo::Box<int>(600, 300, 800, 500), [](int, int) { return opaque(90, 60, 30); });
  startCapture();
  // Dragged from right and below towards the top left: the lens's usual place
  // (right of the pointer, below its top edge) would lie over the area.
  HeadlessInput::moveTo(XY<int>(790, 310));
  HeadlessInput::press();
  HeadlessInput::moveTo(XY<int>(610, 480));
  Zo::Box<double> const area = dropper->getAreaToSample();
  Zo::Box<int> const lens = dropper->getMagnifier()->canvas()->screenBox();
  EXPECT_TRUE(area.intersect(Zo::Box<double>(lens.x0, lens.y0, lens.x1, lens.y1)).empty());
  EXPECT_EQ(lens.y0, 480 + UifStd::getRowHeight() * 2 / 3);
  HeadlessInput::release();
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_EQ(colourIn(messages()[0]), (Rgb{90, 60, 30}));
}

TEST_F(EyeDropperTest, TheScreenHoldsStillWhileTheUserPicks) {
  screen().setDesktopColour(Colour(0.2, 0.4, 0.6));
  startCapture();
  EXPECT_TRUE(is_good_glob_ptr(Canvas::atScreenPoint(XY<int>(1500, 900))->root(), "EyeDropperScreenCover"));
  // What changes underneath now is not what the user is looking at.
  screen().setDesktopColour(Colour(1.0, 0.0, 0.0));
  HeadlessInput::click(XY<int>(1500, 900));
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_EQ(colourIn(messages()[0]), (Rgb{51, 102, 153}));
  EXPECT_EQ(Canvas::atScreenPoint(XY<int>(1500, 900)), nullptr);
}

TEST_F(EyeDropperTest, TheKeyboardStartsACaptureToo) {
  ASSERT_TRUE(set_kbd_focus(dropper));
  HeadlessInput::key(' ');
  EXPECT_TRUE(dropper->enabled());
  EXPECT_EQ(dropper->getState(), 1);
  HeadlessInput::key(kKeyEscape);
  EXPECT_FALSE(dropper->enabled());
}

TEST_F(EyeDropperTest, ADropperThatDiesWhileCapturingGivesTheMouseBack) {
  startCapture();
  MagnifyTool* lens = dropper->getMagnifier();
  GlobManager::requestDeletion(dropper);
  pump();
  EXPECT_TRUE(getEventInterceptStack().empty());
  EXPECT_TRUE(ZoTooltipsEnabled());
  EXPECT_FALSE(is_good_glob_ptr(lens));
  EXPECT_EQ(screen().cursor(), 0);
}

// Keeps what is written to the log while it lives.
struct LogRecorder {
  LogRecorder() : id(addLogSink([this](std::string_view line) { lines.emplace_back(line); })) {
    testing::internal::CaptureStderr();
  }
  ~LogRecorder() {
    testing::internal::GetCapturedStderr();
    removeLogSink(id);
  }
  std::vector<std::string> lines;
  int id;
};

TEST_F(EyeDropperTest, CaptureTurnsOffTheMouseContextAndShowsTheCaptureCursor) {
  HeadlessInput::clickOn(*dropper);
  EXPECT_EQ(screen().cursor(), kCursorCapture);
  EXPECT_FALSE(glib_mouseContextLogicEnabled());
  // Over a widget with a cursor of its own, the capture cursor stays.
  HeadlessInput::moveTo(HeadlessInput::pointOn(*other));
  EXPECT_EQ(screen().cursor(), kCursorCapture);
  HeadlessInput::key(kKeyEscape);
  EXPECT_TRUE(glib_mouseContextLogicEnabled());
  EXPECT_EQ(screen().cursor(), kCursorDefault);
}

TEST_F(EyeDropperTest, AButtonTheStackRefusesLogsThatCaptureFailed) {
  LogRecorder log;
  ASSERT_TRUE(getEventInterceptStack().push(dropper).valid()); // someone else put it there
  HeadlessInput::clickOn(*dropper);
  EXPECT_FALSE(dropper->enabled());
  EXPECT_EQ(log.lines, std::vector<std::string>{"Failed to enabled cursor capture."});
  EXPECT_EQ(dropper->getMagnifier(), nullptr);
  EXPECT_TRUE(ZoTooltipsEnabled());
  EXPECT_TRUE(glib_mouseContextLogicEnabled());
  getEventInterceptStack().remove(dropper);
}

TEST_F(EyeDropperTest, AnEntryTakenOffTheStackByOthersLogsThatReleaseFailedAndStaysCapturing) {
  startCapture();
  LogRecorder log;
  MagnifyTool* lens = dropper->getMagnifier();
  getEventInterceptStack().remove(dropper);
  dropper->disableCapture();
  EXPECT_EQ(log.lines, std::vector<std::string>{"Failed to disable cursor capture."});
  EXPECT_TRUE(dropper->enabled());
  // Everything else is given back.
  EXPECT_FALSE(is_good_glob_ptr(lens));
  EXPECT_TRUE(ZoTooltipsEnabled());
  EXPECT_TRUE(glib_mouseContextLogicEnabled());
  // Still marked as capturing, it tries again when it goes, and fails again.
  GlobManager::requestDeletion(dropper);
  pump();
  EXPECT_EQ(log.lines.size(), 2u);
}

// Departures from the capture as first described, each on purpose:

// A press at screen x = 0 starts an area like any other; only a negative x
// means "no press yet".
TEST_F(EyeDropperTest, DepartureAPressAtTheLeftEdgeOfTheScreenStartsAnArea) {
  PatchWindow patch(Zo::Box<int>(0, 300, 40, 340), [](int, int) { return opaque(250, 10, 10); });
  startCapture();
  HeadlessInput::moveTo(XY<int>(0, 320));
  HeadlessInput::press();
  EXPECT_EQ(dropper->getAreaStart(), XY<double>(0.0, 320.0));
  HeadlessInput::moveTo(XY<int>(3, 322));
  EXPECT_EQ(dropper->getAreaToSample(), Zo::Box<double>(0, 320, 4, 323));
  EXPECT_EQ(dropper->getMagnifier()->getHighlight(), Zo::Box<double>(0, 320, 4, 323));
  HeadlessInput::release();
  ASSERT_EQ(messages().size(), 1u);
  EXPECT_EQ(colourIn(messages()[0]), (Rgb{250, 10, 10}));
}

// A release with no press of its own (the press fell on the button) ends the
// capture without a sample.
TEST_F(EyeDropperTest, DepartureAReleaseWithNoPressSendsNothing) {
  startCapture();
  HeadlessInput::moveTo(HeadlessInput::pointOn(*dropper));
  HeadlessInput::press();
  HeadlessInput::moveTo(XY<int>(650, 350));
  HeadlessInput::release();
  EXPECT_FALSE(dropper->enabled());
  EXPECT_TRUE(messages().empty());
}

// Before a press the area is the pointer's pixel, not a box from (-1, -1).
TEST_F(EyeDropperTest, DepartureBeforeAPressTheAreaIsThePointersPixel) {
  startCapture();
  HeadlessInput::moveTo(XY<int>(640, 360));
  EXPECT_LT(dropper->getAreaStart().x, 0.0);
  EXPECT_EQ(dropper->getAreaToSample(), Zo::Box<double>(640, 360, 641, 361));
  HeadlessInput::key(kKeyEscape);
}

TEST_F(EyeDropperTest, TheDropperIsNamedAndShowsItsPicture) {
  EXPECT_EQ(dropper->getName(), LightweightString<char>(colourEyeDropper::kName));
  EXPECT_STREQ(dropper->idstring(), "colourEyeDropper");
  // The pipette's bulb, in the text colour, top right of the face.
  int const row = UifStd::getRowHeight();
  EXPECT_TRUE(near(rgbOf(widgetPixel(*dropper, XY<int>(row * 68 / 100, row * 68 / 100))),
                   rgbOf(UifStd::getColourScheme().text()), 8));
}

TEST_F(EyeDropperTest, AnImageButtonShowsItsPictureFile) {
  int const row = UifStd::getRowHeight();
  Zo::Image::Surface picture(8, 8);
  picture.fill(Colour(1.0, 0.5, 0.0));
  std::string const file = (std::filesystem::temp_directory_path() / "zowidgets-image-button.png").string();
  ASSERT_TRUE(picture.savePNG(file));
  ImageButton::InitArgs args(UIString(), XY<int>(row, row));
  args.imageFile = file;
  auto* button = panel->createWidget<ImageButton>(args, Glob::UserBottomLeft(0, 0));
  EXPECT_STREQ(button->idstring(), "ImageButton");
  EXPECT_EQ(rgbOf(widgetPixel(*button, XY<int>(row / 2, row / 2))), (Rgb{255, 128, 0}));
  // A file that cannot be read leaves the picture given in code.
  Zo::Image::Surface fallback(8, 8);
  fallback.fill(Colour(0.0, 0.0, 1.0));
  args.imageFile = file + ".missing";
  args.icon = fallback;
  auto* fallbackButton = panel->createWidget<ImageButton>(args, Glob::UserBottomRight(0, 0));
  EXPECT_EQ(rgbOf(widgetPixel(*fallbackButton, XY<int>(row / 2, row / 2))), (Rgb{0, 0, 255}));
  std::filesystem::remove(file);
}

TEST(EyeDropperSampling, MeansAreIntegerMeansOfEachChannel) {
  HeadlessScreen& screen = useHeadlessScreen();
  PatchWindow two(Zo::Box<int>(10, 10, 12, 11),
                  [](int x, int) { return x == 0 ? opaque(10, 20, 30) : opaque(13, 23, 34); });
  RgbTriple_<unsigned char> const mean = ColEyeDropBase::getPixelColour(Zo::Box<double>(10.7, 10.2, 12.9, 11.9));
  EXPECT_EQ(mean.red(), 11);
  EXPECT_EQ(mean.green(), 21);
  EXPECT_EQ(mean.blue(), 32);
  // Nothing of the box on the screen: black, and a range of zeros.
  RgbTriple_<unsigned char> const off = ColEyeDropBase::getPixelColour(Zo::Box<double>(-20, -20, -10, -10));
  EXPECT_EQ(off, (RgbTriple_<unsigned char>{}));
  EXPECT_EQ(ColEyeDropBase::getPixelRange(Zo::Box<double>(-20, -20, -10, -10)), (std::array<double, 6>{}));
  // Half off the screen, the part on it is what counts.
  screen.setDesktopColour(Colour(0.0, 1.0, 0.0));
  RgbTriple_<unsigned char> const edge = ColEyeDropBase::getPixelColour(Zo::Box<double>(-5, -5, 2, 2));
  EXPECT_EQ(edge.green(), 255);
  EXPECT_EQ(edge.red(), 0);
}

TEST(EyeDropperMessage, CarriesHueSaturationAndValueOver255) {
  RgbTriple_<unsigned char> red{};
  red[2] = 255;
  EXPECT_EQ(ColEyeDropBase::pixelToMsg(red).str(), "colour_eye_dropper HSV 0 1 0.00392156862745098");
  for (Rgb pixel : {Rgb{0x33, 0x66, 0xcc}, Rgb{1, 2, 3}, Rgb{255, 255, 255}, Rgb{0, 0, 0}, Rgb{200, 17, 99}}) {
    RgbTriple_<unsigned char> triple{};
    triple[0] = static_cast<unsigned char>(pixel.b);
    triple[1] = static_cast<unsigned char>(pixel.g);
    triple[2] = static_cast<unsigned char>(pixel.r);
    EXPECT_EQ(colourIn(ColEyeDropBase::pixelToMsg(triple).str()), pixel);
  }
}

TEST(EyeDropperMessage, ParseReadsOnlyFiveWordMessagesOfTheDropper) {
  double h = 7, s = 7, v = 7;
  EXPECT_EQ(ColEyeDropBase::parse("colour_eye_dropper  HSV 120 0.5  0.25 ", h, s, v), 0);
  EXPECT_EQ(h, 120.0);
  EXPECT_EQ(s, 0.5);
  EXPECT_EQ(v, 0.25);
  h = s = v = 7;
  for (char const* other : {"colour_eye_dropper HSV ", "colour_eye_dropper HSV 1 2", "paint HSV 1 2 3",
                            "colour_eye_dropper HSV 1 2 3 4", ""}) {
    EXPECT_EQ(ColEyeDropBase::parse(other, h, s, v), 0);
    EXPECT_EQ(h + s + v, 21.0) << other;
  }
  // The second word is not looked at; unreadable numbers read as 0.
  ColEyeDropBase::parse("colour_eye_dropper RGB x 1e-3 2", h, s, v);
  EXPECT_EQ(h, 0.0);
  EXPECT_EQ(s, 0.001);
  EXPECT_EQ(v, 2.0);
}

class EyeDropperGolden : public EyeDropperTest, public ::testing::WithParamInterface<double> {
protected:
  void SetUp() override {
    UifStd::setScale(GetParam());
    EyeDropperTest::SetUp();
  }
  void TearDown() override {
    EyeDropperTest::TearDown();
    UifStd::setScale(1.0);
  }
  std::string golden(char const* state) const {
    return std::string(ZO_GOLDEN_DIR "/eyedropper_") + state + (GetParam() == 1.0 ? "_scale1.png" : "_scale2.png");
  }
};

TEST_P(EyeDropperGolden, IdleAndCapturing) {
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("idle")));
  startCapture();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), golden("capturing")));
}

INSTANTIATE_TEST_SUITE_P(Scales, EyeDropperGolden, ::testing::Values(1.0, 2.0));

// Whether two pictures have the same size and every pixel alike.
bool samePicture(Zo::Image::Surface const& a, Zo::Image::Surface const& b) {
  if (a.width() != b.width() || a.height() != b.height() || a.empty())
    return false;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x)
      if (a.pixel(x, y) != b.pixel(x, y))
        return false;
  return true;
}

TEST(EyeDropperIconName, TheButtonShowsTheThemesEyedropperArtworkAndOurPipetteWithoutIt) {
  IconCache::clear();
  int const height = 30;
  int const side = height - UifStd::getWidgetGap() * 2;
  Colour const ink = UifStd::getColourScheme().text();
  colourEyeDropper::InitArgs themed(30, height);
  IconCache::Icon const artwork = IconCache::get(colourEyeDropper::kIconName, side, ink);
  ASSERT_TRUE(artwork.fromTheme) << "the icon theme is installed with the host's packages";
  EXPECT_TRUE(samePicture(themed.icon, artwork.surface));
  EXPECT_FALSE(samePicture(themed.icon, makeEyeDropperIcon(side, ink)));

  ScratchFolder noTheme;
  ScopedEnv const elsewhere("ZOWIDGETS_ICON_THEME_DIR", noTheme.path().string());
  colourEyeDropper::InitArgs plain(30, height);
  EXPECT_TRUE(samePicture(plain.icon, makeEyeDropperIcon(side, ink)));
  IconCache::clear();
}

} // namespace
