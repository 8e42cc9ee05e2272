// Editor widgets: a small timeline head of track buttons that the user
// selects, resizes by their edges and makes glow, with an angle dial, a time
// marker over a strip, a thumbnail with its ribbon and corner flag, and a
// gesture button whose drags run commands.
#include "PageLayout.h"

#include <zowidgets/editor/AngleIndicatorWidget.h>
#include <zowidgets/editor/CornerHighlight.h>
#include <zowidgets/editor/GestureButton.h>
#include <zowidgets/editor/RibbonWidget.h>
#include <zowidgets/editor/SimpleTimeMarker.h>
#include <zowidgets/editor/TrackButton.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace {

constexpr char const* kStatusName = "editor-status";

// Shows `text` in the status line of the page that `origin` belongs to, if
// it is one.
void reportOnPage(EventHandler* origin, std::wstring const& text) {
  auto* widget = dynamic_cast<Glob*>(origin);
  if (!is_good_glob_ptr(widget))
    return;
  if (auto* status = dynamic_cast<TextLabel*>(widget->getRootParent()->getWidget(kStatusName)))
    status->setString(UIString(LightweightString<wchar_t>(text)));
}

// The gesture button's commands: they only say what they would do to a clip.
struct GestureCommand {
  char const* name;
  wchar_t const* effect;
};
constexpr std::array<GestureCommand, 5> kGestureCommands{{
    {"Trim Clip", L"Trim: the clip under the playhead is trimmed"},
    {"Trim Clip Start", L"Dragged left: the clip's start is trimmed"},
    {"Trim Clip End", L"Dragged right: the clip's end is trimmed"},
    {"Lift Clip", L"Dragged up: the clip is lifted to the track above"},
    {"Drop Clip", L"Dragged down: the clip is dropped to the track below"},
}};

CommandRegistrar makeRegistrar(GestureCommand const& command) {
  std::wstring const effect = command.effect;
  return CommandRegistrar(
      command.name, [effect](Cmd::Context const& context) { reportOnPage(context.origin, effect); },
      UIString(LightweightString<wchar_t>(std::wstring(command.effect))), UIString(), kCmdScopeApplication, MapItem{});
}

CommandRegistrar const trimClip = makeRegistrar(kGestureCommands[0]);
CommandRegistrar const trimClipStart = makeRegistrar(kGestureCommands[1]);
CommandRegistrar const trimClipEnd = makeRegistrar(kGestureCommands[2]);
CommandRegistrar const liftClip = makeRegistrar(kGestureCommands[3]);
CommandRegistrar const dropClip = makeRegistrar(kGestureCommands[4]);

// The application's side of the track buttons: it gives a button the height
// its edge drag asks for, and selects one track alone on a two-button click.
class TimelineHead : public Glob {
public:
  explicit TimelineHead(XY<int> size) : Glob(GlobCreationInfo(size)) {}

  int react(Event const& event) override {
    if (!event.isMessage() || !is_good_glob_ptr(event.sourceWidget, "TrackButton"))
      return Glob::react(event);
    auto* track = static_cast<TrackButton*>(event.sourceWidget);
    if (event.message.view().starts_with("TrackBtnResize")) {
      TrackButton::ResizeParams const request(event.message);
      // No taller than the head leaves room for: the tracks below stay in
      // sight, as the head does not scroll.
      int others = 0;
      for (Glob* child : getChildren())
        if (child != track && child->isType("TrackButton"))
          others += child->height() + 1;
      int const room = std::max(minimumTrackHeight(), height() - others);
      int const height =
          std::clamp(request.requestedHeight(), minimumTrackHeight(), std::min(4 * UifStd::getRowHeight(), room));
      track->resize(track->width(), height);
      report(L"Track " + track->getDisplayString().str() + L" is " + std::to_wstring(height) + L" pixels high");
      return 1;
    }
    if (event.message == TrackButton::SoloSelectChanMsg) {
      for (Glob* child : getChildren())
        if (child->isType("TrackButton"))
          static_cast<TrackButton*>(child)->setSelected(child == track);
      report(L"Only " + track->getDisplayString().str() + L" is selected");
      return 1;
    }
    return 0;
  }

  // Small enough to see the names vanish below nine pixels a line.
  static int minimumTrackHeight() { return std::max(8, UifStd::getRowHeight() / 2); }

protected:
  void drawBackground(CanvasRenderer& renderer) override {
    renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()), getPalette().window(-2)));
  }

private:
  void report(std::wstring const& text) { reportOnPage(this, text); }
};

// A strip of timeline with a thumbnail on it, marked by a ribbon and a
// corner flag, under a red time marker.
void addTimelineStrip(StandardPanel* panel, Glob* beside, XY<int> size, PageMetrics const& m) {
  auto* strip = panel->createWidget<WidgetHost>(StandardPanel::InitArgs(GlobCreationInfo(size)),
                                                Glob::RightOf(m.gap, beside, kAlignStart));
  strip->setPalette(makeWindowPalette(strip->getPalette(), Colour(0.12, 0.13, 0.15)));
  int const thumbWidth = m.row * 4, thumbHeight = m.row * 2;
  auto* thumbnail = strip->createWidget<WidgetHost>(StandardPanel::InitArgs(GlobCreationInfo(thumbWidth, thumbHeight)),
                                                    Glob::UserTopLeft(m.row, m.row));
  thumbnail->setPalette(makeWindowPalette(thumbnail->getPalette(), Colour(0.25, 0.35, 0.45)));
  Zo::Box<int> const ribbonArea =
      RibbonWidget::calcRibbonArea(Zo::Box<int>(0, 0, thumbWidth, thumbHeight), static_cast<unsigned short>(m.gap));
  thumbnail->createWidget<RibbonWidget>(RibbonWidget::InitArgs(ribbonArea.getDimensions(), Colour(0.9, 0.3, 0.2), true),
                                        Glob::UserTopLeft(ribbonArea.x0, thumbHeight - ribbonArea.y1));
  thumbnail->createWidget<CornerHighlight>(
      CornerHighlight::InitArgs(CornerHighlight::calcSize(), Colour(1.0, 0.8, 0.0)), Glob::UserTopRight(0, 0));
  strip->createWidget<SimpleTimeMarker>(GlobCreationInfo(SimpleTimeMarker::calcWidth(), size.y),
                                        Glob::UserTopLeft(m.row * 3, 0));
}

Glob* buildEditorPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const headWidth = m.row * 5, headHeight = m.row * 7;
  int const stripWidth = m.row * 6;
  int const dialSize = m.row * 3;
  // The reading under the dial is wider than the dial at three digits.
  int const readingWidth = std::max(dialSize, TextLabel::calcWidth(UIString(L"Angle 360\u00b0")) + m.gap);
  int const statusWidth = headWidth + stripWidth + readingWidth + 2 * m.gap;
  XY<int> const userArea(statusWidth + 2 * m.gap, headHeight + 3 * m.row + 4 * m.gap);
  StandardPanel* panel = openPageWindow(context, userArea, L"Editor widgets");

  auto* head = static_cast<TimelineHead*>(
      panel->addChild(new TimelineHead(XY<int>(headWidth, headHeight)), Glob::UserTopLeft(m.gap, m.gap)));
  struct Track {
    std::vector<UIString> names;
    int lines;
  };
  std::array<Track, 4> const tracks{{{{UIString(L"V2")}, 1},
                                     {{UIString(L"V1")}, 1},
                                     {{UIString(L"A1 L"), UIString(L"A1 R")}, 2},
                                     {{UIString(L"A2")}, 1}}};
  Glob* previous = nullptr;
  for (Track const& track : tracks) {
    TrackButton::InitArgs args(track.names, XY<int>(headWidth, m.row * track.lines + m.rowGap));
    args.setParent(head);
    auto* button = static_cast<TrackButton*>(
        head->addChild(new TrackButton(args), previous ? Glob::Below(1, previous) : Glob::UserTopLeft(0, 0)));
    button->setResizeAllowed(true);
    previous = button;
  }
  static_cast<TrackButton*>(head->getChildren()[0])->setSelected(false);
  static_cast<TrackButton*>(head->getChildren()[2])->setGlowColour(TrackButton::defaultGlowColour());

  addTimelineStrip(panel, head, XY<int>(stripWidth, headHeight), m);

  AngleControl::InitArgs dialArgs(GlobCreationInfo(dialSize, dialSize));
  dialArgs.angle = 30;
  auto* dial = panel->createWidget<AngleControl>(dialArgs, Glob::RightOf(m.gap));
  TextLabel::InitArgs angleArgs(XY<int>(readingWidth, m.row));
  angleArgs.text = L"Angle 30\u00b0";
  angleArgs.alignment = Glib::eTextAlignment::Centre;
  auto* angleLabel = panel->createWidget<TextLabel>(angleArgs, Glob::Below(m.gap, dial));
  IdStamp const angleStamp = EventHandler::stampOf(angleLabel);
  dial->addListener(Broadcaster<AngleControlEvent>::makeCallback([=](AngleControlEvent const& event) {
    if (EventHandler::valid(angleLabel, angleStamp))
      // One reading per direction: 0 to 359, clockwise from the top.
      angleLabel->setString(UIString(LightweightString<wchar_t>(
          L"Angle " + std::to_wstring((static_cast<int>(std::lround(event.angle)) % 360 + 360) % 360) + L"\u00b0")));
  }));

  auto* glow =
      panel->createWidget<PushButton>(PushButton::InitArgs(L"Glow", XY<int>(m.row * 4, 0)), Glob::Below(m.gap, head));
  glow->setCallback(Broadcaster<ButtonEvent>::makeCallback([head](ButtonEvent const&) {
    static std::array<Colour, 3> const colours{TrackButton::defaultGlowColour(), Colour(0.6, 0.4, 0.1),
                                               Colour(0.45, 0.2, 0.55)};
    static std::size_t next = 1;
    for (Glob* child : head->getChildren())
      static_cast<TrackButton*>(child)->setGlowColour(colours[next]);
    next = (next + 1) % colours.size();
  }));
  auto* gesture = panel->createWidget<GestureButton>(
      GestureButton::InitArgs(L"Trim", XY<int>(m.row * 4, 0), kGestureCommands[0].name), Glob::RightOf(m.gap));
  gesture->addGesture(kDragLeft, kGestureCommands[1].name);
  gesture->addGesture(kDragRight, kGestureCommands[2].name);
  gesture->addGesture(kDragUp, kGestureCommands[3].name);
  gesture->addGesture(kDragDown, kGestureCommands[4].name);

  TextLabel::InitArgs statusArgs(XY<int>(statusWidth, m.row * 2));
  statusArgs.text = L"Click a track to select it; drag its lower edge to resize it; press both buttons to solo it. "
                    L"Drag the dial's hand. Drag off Trim to trim, lift or drop.";
  statusArgs.wordWrap = true;
  auto* status = panel->createWidget<TextLabel>(statusArgs, Glob::Below(m.gap, glow));
  status->setName(kStatusName);
  return panel;
}

PageRegistrar const editorPage{"editor", "Editor widgets",
                               "Track buttons forming a timeline head that a user selects, resizes by the edge and "
                               "makes glow; an angle dial; a time marker, a corner flag and an asset ribbon on a "
                               "timeline strip; a gesture button whose drags run commands",
                               buildEditorPage};

} // namespace
