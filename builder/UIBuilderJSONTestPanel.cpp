#include <zowidgets/builder/UIBuilderJSONTestPanel.h>
#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

// A test panel has no place in the menus: it carries no label, description
// or key.
CommandRegistrar const registration(
    UIBuilderJSONTestPanel::kCommand,
    [](Cmd::Context const& context) { GlobManager::placeBeside(UIBuilderJSONTestPanel::open(), context.origin); },
    UIString(), UIString(), kCmdScopeApplication, MapItem{});

int panelWidth() { return 20 * UifStd::getRowHeight(); }

} // namespace

wchar_t const* const UIBuilderJSONTestPanel::kSampleDescription = LR"({"rows": [
  {"type": "label", "legend": "A form described in JSON."},
  {"type": "bool", "name": "enabled", "legend": "Enabled", "default": true},
  {"type": "int", "name": "count", "legend": "Count", "min": 0, "max": 10, "default": 3},
  {"type": "float", "name": "gain", "legend": "Gain", "min": 0, "max": 2, "default": 1},
  {"type": "int", "name": "mode", "legend": "Mode", "values": {"Fast": 1, "Best": 2}, "choice": "2"},
  {"type": "text", "name": "title", "legend": "Title", "hint": "your name", "advance": true}
]})";

UIBuilderJSONTestPanel::UIBuilderJSONTestPanel(InitArgs const& args) : StandardPanel(args) {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getRowGap();
  Zo::Box<int> const user = getUserArea();

  PushButton::InitArgs buildArgs(UIString(L"Build"), XY<int>(4 * row, PushButton::calcHeight()));
  build_ = createWidget<PushButton>(buildArgs, Glob::UserBottomRight(0, 0));
  build_->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { build(); }));

  TextLabel::InitArgs statusArgs(XY<int>(user.width() - build_->width() - gap, row));
  status_ = createWidget<TextLabel>(statusArgs, Glob::UserBottomLeft(0, 0));

  MultiLineTextBox::InitArgs boxArgs(XY<int>(user.width(), user.height() - row - gap));
  description_ = createWidget<MultiLineTextBox>(boxArgs, Glob::UserTopLeft(0, 0));
  description_->setString(kSampleDescription);
}

UIBuilderJSONTestPanel* UIBuilderJSONTestPanel::open(XY<int> screenPosition) {
  InitArgs args(calcPanelSize(XY<int>(panelWidth(), 14 * UifStd::getRowHeight()), kTitle | kPoot, getDefaultBorder()));
  args.screenPosition = screenPosition;
  args.standardWidgets = kTitle | kPoot;
  args.title = UIString(L"UIBuilder JSON Test");
  auto* panel = new UIBuilderJSONTestPanel(args);
  GlobManager::realize(panel);
  return panel;
}

StandardPanel* UIBuilderJSONTestPanel::getBuiltPanel() const {
  if (!is_good_glob_ptr(builtPanel_) || builtPanel_->handlerStamp() != builtStamp_)
    return nullptr;
  return static_cast<StandardPanel*>(builtPanel_);
}

void UIBuilderJSONTestPanel::showStatus(LightweightString<wchar_t> const& text) {
  status_->setString(UIString(text));
  // A parser's message can run past the line beside the button: the
  // tooltip holds it whole.
  status_->setContextString(TooltipDetails(UIString(text)));
}

void UIBuilderJSONTestPanel::build() {
  LightweightString<wchar_t> const text = description_->getString();
  JSON::ParseError error;
  Zo::Ptr<JSON::Element> const root = JSON::parse(text, error);
  if (!root) {
    // Where the parser stopped, in words and with the caret, so the user can
    // mend it there.
    showStatus(LightweightString<wchar_t>(L"The description is not valid JSON: ") + toWide(error.describe()));
    description_->placeCaret(error.offsetIn(text.view()));
    set_kbd_focus(description_);
    return;
  }
  if (StandardPanel* previous = getBuiltPanel())
    GlobManager::requestDeletion(previous);

  // Sized for every entry before the build; merged rows shrink it after.
  unsigned short const entries = UIBuilder::getNumParams(root);
  int const rowsHeight = entries == 0 ? 0 : entries * (UifStd::getRowHeight() + UifStd::getRowGap());
  InitArgs args(calcPanelSize(XY<int>(panelWidth(), rowsHeight), kTitle | kPoot, getDefaultBorder()));
  args.standardWidgets = kTitle | kPoot;
  args.title = UIString(L"Built from JSON");
  if (Canvas* own = canvas()) {
    Zo::Box<int> const mine = own->screenBox();
    args.screenPosition = XY<int>(mine.x1 + UifStd::getWidgetGap(), mine.y1 - args.size.y);
  }
  auto* panel = new BuiltPanel(args);
  panel->setBuiltParams(UIBuilder::buildFromJSON(root, panel));
  panel->growToShowEveryRow();
  GlobManager::realize(panel);
  builtPanel_ = panel;
  builtStamp_ = panel->handlerStamp();
  showStatus(toWide(std::to_string(entries) + (entries == 1 ? " row" : " rows") + " built."));
}
