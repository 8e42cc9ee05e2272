#include <zowidgets/diagnostics/InfoWidget.h>
#include <zowidgets/diagnostics/detail/GlobFacts.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/popups/SelectionRectangle.h>

#include <algorithm>
#include <array>

namespace {

using WString = LightweightString<wchar_t>;

struct StandardWidgetName {
  unsigned flag;
  wchar_t const* name;
};

constexpr std::array<StandardWidgetName, 5> kStandardWidgetNames{{
    {StandardPanel::kTitle, L"Title"},
    {StandardPanel::kPoot, L"Poot"},
    {StandardPanel::kPin, L"Pin"},
    {StandardPanel::kCogs, L"Cogs"},
    {StandardPanel::kDoIt, L"DoIt"},
}};

std::vector<LabelledLine> describeWidget(Glob const& widget) {
  // A heavy widget's parent is the screen: its position is where it is there.
  LabelledValue position{L"Position ", GlobFacts::pointText(widget.getPosition())};
  if (!widget.isLightweight())
    position.value = WString(GlobFacts::pointText(widget.screenPosition()).str() + L" (heavy)");
  LabelledLine state{{L"", GlobFacts::borderName(widget.getBorder())},
                     {L"Shadow ", GlobFacts::yesNo(widget.getBorder().hasShadow())}};
  if (auto const* panel = dynamic_cast<StandardPanel const*>(&widget))
    state.push_back({L"Title ", GlobFacts::yesNo((panel->getStandardWidgets() & StandardPanel::kTitle) != 0)});
  state.push_back({L"Visible ", GlobFacts::yesNo(widget.isVisible())});
  return {
      {{L"Type ", GlobFacts::typeName(widget)}},
      {{L"Size ", GlobFacts::sizeText(widget.getSize())}, position},
      state,
  };
}

// The palette a highlighted widget wears: its window in the selection colour.
Palette highlightPalette(Palette const& palette) {
  return makeWindowPalette(palette, palette.selection().mix(palette.window(), 0.5));
}

} // namespace

GlobInspector::InfoWidget::InfoWidget(InitArgs const& args) : StandardPanel(args), target_(args.target) {
  setPersistable(false);
  // A window moved or resized, by the user or anyone: the lines say where
  // it is now.
  windowGuard_ = GlobManager::notifier().addListener(
      Zo::Ptr<iCallbackBase<int, GlobManagerEvent>>(
          new MethodCallback<InfoWidget, GlobManagerEvent>(this, &InfoWidget::handleWindowChange)),
      NotifyMsgTypeDictionary::instance().anyType());
}

int GlobInspector::InfoWidget::handleWindowChange(GlobManagerEvent const& event) {
  bool const moved = event.kind == GlobManagerEvent::kMoved || event.kind == GlobManagerEvent::kResized;
  if (Glob* target = getTarget(); moved && target && event.glob == target->getRootParent())
    invalidate();
  return 0;
}

GlobInspector::InfoWidget::~InfoWidget() { setHighlighted(false); }

int GlobInspector::InfoWidget::calcHeight() { return 3 * UifStd::getRowHeight(); }

int GlobInspector::InfoWidget::calcWidth(Glob const& target) {
  int width = 0;
  for (LabelledLine const& line : describeWidget(target))
    width = std::max(width, LabelledText::lineWidth(line));
  return width + 2 * UifStd::getWidgetGap();
}

std::vector<LabelledLine> GlobInspector::InfoWidget::describe() const {
  Glob const* target = getTarget();
  return target ? describeWidget(*target) : std::vector<LabelledLine>();
}

int GlobInspector::InfoWidget::react(Event const& event) {
  // A chord belongs to the inspector, and ends any click begun here.
  if (mouse_chord_event(event)) {
    leftPressed_ = false;
    return 0;
  }
  return StandardPanel::react(event);
}

int GlobInspector::InfoWidget::handleMouseEvent(Event const& event) {
  if (event.buttons != kMouseLeft)
    return 0;
  if (event.type == Event::kMouseDown) {
    leftPressed_ = true;
    return 1;
  }
  if (event.type != Event::kMouseUp || !leftPressed_)
    return 0;
  leftPressed_ = false;
  if (Zo::Box<int>(0, 0, width(), height()).contains(event.position))
    setHighlighted(!isHighlighted());
  return 1;
}

void GlobInspector::InfoWidget::setHighlighted(bool on) {
  if (on == isHighlighted())
    return;
  Glob* target = getTarget();
  if (!on) {
    highlight_.requestDeletion();
    if (target)
      hadOwnPalette_ ? target->setPalette(savedPalette_) : target->inheritPalette();
    invalidate();
    return;
  }
  if (!target)
    return;
  hadOwnPalette_ = target->hasOwnPalette();
  savedPalette_ = target->getPalette();
  target->setPalette(highlightPalette(savedPalette_));
  // Over the target in its own window, in front of everything there, and
  // taking no input: clicks still reach the widgets under it.
  Glob* root = target->getRootParent();
  SelectionRectangle::InitArgs args(target->getSize());
  args.opacity = 0.5;
  auto* band = new SelectionRectangle(args);
  root->addWidget(band);
  band->setPosition(target->canvasPosition() - root->canvasPosition());
  band->invalidate();
  highlight_ = GlobHandle(band);
  invalidate();
}

Glob* GlobInspector::InfoWidget::panelConcerned() const {
  Glob* target = getTarget();
  if (!target)
    return nullptr;
  Glob* root = target->getRootParent();
  return dynamic_cast<StandardPanel*>(root) ? root : target;
}

void GlobInspector::InfoWidget::showChange(Glob* changed) {
  Drawable::Suspender holdRedraws;
  changed->resize(changed->width(), changed->height());
  changed->layoutChildren();
  changed->invalidate();
  // The inspector's rows describe the change too.
  getRootParent()->invalidate();
}

void GlobInspector::InfoWidget::handleBorderChangeRequest(int style) {
  Glob* panel = panelConcerned();
  if (!panel)
    return;
  Border border = Border::forStyle(style);
  border.setShadow(panel->getBorder().hasShadow());
  panel->setBorder(border);
  showChange(panel);
}

void GlobInspector::InfoWidget::handleShadowChangeRequest(bool shadow) {
  Glob* panel = panelConcerned();
  if (!panel)
    return;
  Border border = panel->getBorder();
  border.setShadow(shadow);
  panel->setBorder(border);
  showChange(panel);
}

void GlobInspector::InfoWidget::handleWidgetChangeRequest(unsigned standardWidget) {
  auto* panel = dynamic_cast<StandardPanel*>(getTarget());
  if (!panel)
    return;
  if (panel->getStandardWidgets() & standardWidget)
    panel->removeStandardWidgets(standardWidget);
  else
    panel->addStandardWidgets(standardWidget);
  showChange(panel);
}

void GlobInspector::InfoWidget::handleVisChangeRequest(bool visible) {
  Glob* target = getTarget();
  if (!target)
    return;
  target->setVisible(visible);
  showChange(target);
}

void GlobInspector::InfoWidget::reviewMenu(Event const*) {
  clearMenu();
  if (!getTarget())
    return;
  addMenuItem(MenuItem::heading(L"Border"));
  for (int style = 0; style < Border::kStyleCount; ++style)
    addMenuItem(GlobFacts::borderStyleName(style),
                [this, style](MenuItem const&) { handleBorderChangeRequest(style); });
  addMenuItem(MenuItem::heading(L"Shadow"));
  addMenuItem(L"Yes", [this](MenuItem const&) { handleShadowChangeRequest(true); });
  addMenuItem(L"No", [this](MenuItem const&) { handleShadowChangeRequest(false); });
  if (dynamic_cast<StandardPanel*>(getTarget())) {
    addMenuItem(MenuItem::heading(L"Widgets"));
    for (StandardWidgetName const& widget : kStandardWidgetNames)
      addMenuItem(widget.name, [this, flag = widget.flag](MenuItem const&) { handleWidgetChangeRequest(flag); });
  }
  addMenuItem(MenuItem::heading(L"Visible"));
  addMenuItem(L"Yes", [this](MenuItem const&) { handleVisChangeRequest(true); });
  addMenuItem(L"No", [this](MenuItem const&) { handleVisChangeRequest(false); });
}

void GlobInspector::InfoWidget::drawBackground(CanvasRenderer& renderer) {
  Palette const& palette = getPalette();
  renderer.renderPrimitive(Glib::RectDescription(Zo::Box<int>(0, 0, width(), height()),
                                                 isHighlighted() ? palette.selection() : palette.window(-1)));
  int const rowHeight = UifStd::getRowHeight();
  int const gap = UifStd::getWidgetGap();
  int top = height();
  for (LabelledLine const& line : describe()) {
    LabelledText::drawLine(renderer, line, Zo::Box<int>(gap, top - rowHeight, width() - gap, top), palette);
    top -= rowHeight;
  }
}
