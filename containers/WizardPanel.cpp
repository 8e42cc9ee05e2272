#include <zowidgets/containers/WizardPanel.h>

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <string>

namespace {

constexpr char const* kNextIcon = "tree-collapsed.png";
constexpr char const* kBackIcon = "scroll-left.png";

PushButton::InitArgs footerButton(ResId text) {
  PushButton::InitArgs args(UIString(text), XY<int>(0, PushButton::calcHeight()));
  args.autoResize = true;
  return args;
}

} // namespace

WizardPanel::WizardPanel(InitArgs const& args) : StandardPanel(args), data_(new WizardData) {
  setResizable(false);
  // The title bar is always there, so the pages' area does not change with
  // the stages' titles.
  addStandardWidgets(kTitle);
  int const gap = UifStd::getWidgetGap();
  next_ =
      createWidget<PushButton>(footerButton(iWizardStage::kNextTextId), MarginBottomRight(gap, UifStd::getRowGap()));
  next_->setName("next");
  next_->setIconName(kNextIcon);
  next_->setIconTrailing(true);
  back_ = createWidget<PushButton>(footerButton(iWizardStage::kBackTextId), LeftOf(gap, next_));
  back_->setName("back");
  back_->setIconName(kBackIcon);
  next_->setCallback(Broadcaster<ButtonEvent>::makeCallback(this, &WizardPanel::handleNextPressed));
  back_->setCallback(Broadcaster<ButtonEvent>::makeCallback(this, &WizardPanel::handleBackPressed));
  tabOrder().addTabStop(*next_, 0);
  tabOrder().addTabStop(*back_, 1);
  set_kbd_focus(next_);
  setStages(args.stages);
}

int WizardPanel::footerHeight() { return PushButton::calcHeight() + 2 * UifStd::getRowGap(); }

Zo::Box<int> WizardPanel::getUserArea() const {
  Zo::Box<int> area = StandardPanel::getUserArea();
  area.y0 = std::min(area.y1, area.y0 + footerHeight());
  return area;
}

Zo::Box<int> WizardPanel::getMarginArea() const {
  Zo::Box<int> const above = StandardPanel::getUserArea();
  return Zo::Box<int>(above.x0, above.y0, above.x1, std::min(above.y1, above.y0 + footerHeight()));
}

XY<int> WizardPanel::calcSize(XY<int> pageSize, unsigned standardWidgets) {
  return calcPanelSize(XY<int>(pageSize.x, pageSize.y + footerHeight()), standardWidgets | kTitle, getDefaultBorder());
}

void WizardPanel::setStages(StageList const& stages) {
  stages_ = stages;
  for (Zo::Ptr<iWizardStage> const& stage : stages_)
    stage->setData(data_);
  dropPage();
  setStage(0, kNoRedraw);
}

void WizardPanel::setStage(unsigned short index, eRedrawFlag redraw) {
  if (index >= stages_.size() || (index == current_ && page_))
    return;
  Drawable::Suspender holdRedraws;
  current_ = index;
  showTitle(redraw);
  dropPage();
  Zo::Box<int> const area = getUserArea();
  page_ = stages_[index]->createPage(*this, UserTopLeft(0, 0), XY<int>(area.width(), area.height()));
  initButtons();
  if (page_)
    page_->addListener(Broadcaster<WizardStagePanelEvent>::makeCallback(this, &WizardPanel::handlePageEvent));
  if (redraw == kRedrawNow) {
    layoutChildren();
    invalidate();
  }
}

void WizardPanel::dropPage() {
  if (!page_)
    return;
  // The page may be the one asking to move on, from inside its own handler:
  // it goes from the tree now and is deleted once that handler is done.
  WizardStagePanel* leaving = std::exchange(page_, nullptr);
  releaseChild(leaving);
  GlobManager::requestDeletion(leaving);
}

void WizardPanel::showTitle(eRedrawFlag redraw) {
  if (current_ < stages_.size())
    setTitle(makeTitle(current_), UifStd::getTitleFont(), redraw);
}

unsigned short WizardPanel::getNextStage(unsigned short index) const {
  for (std::size_t i = std::size_t(index) + 1; i < stages_.size(); ++i)
    if (stages_[i]->isEnabled())
      return static_cast<unsigned short>(i);
  return kNoStage;
}

unsigned short WizardPanel::getPreviousStage(unsigned short index) const {
  for (std::size_t i = std::min<std::size_t>(index, stages_.size()); i-- > 0;)
    if (stages_[i]->isEnabled())
      return static_cast<unsigned short>(i);
  return kNoStage;
}

unsigned short WizardPanel::getFirstActiveStage() const {
  return stages_.empty() ? kNoStage : stages_.front()->isEnabled() ? 0 : getNextStage(0);
}

unsigned short WizardPanel::getLastActiveStage() const {
  return getPreviousStage(static_cast<unsigned short>(stages_.size()));
}

unsigned short WizardPanel::getNumActiveStages() const {
  return static_cast<unsigned short>(std::count_if(
      stages_.begin(), stages_.end(), [](Zo::Ptr<iWizardStage> const& stage) { return stage->isEnabled(); }));
}

unsigned short WizardPanel::getLogicalStageIndex(unsigned short index) const {
  std::size_t const end = std::min(std::size_t(index) + 1, stages_.size());
  return static_cast<unsigned short>(
      std::count_if(stages_.begin(), stages_.begin() + std::ptrdiff_t(end),
                    [](Zo::Ptr<iWizardStage> const& stage) { return stage->isEnabled(); }));
}

UIString WizardPanel::makeTitle(unsigned short index) const {
  if (index >= stages_.size())
    return {};
  UIString const title = stages_[index]->getTitle();
  if (title.empty() || getNumActiveStages() <= 1)
    return title;
  std::wstring const numbered = std::to_wstring(getLogicalStageIndex(index)) + L"/" +
                                std::to_wstring(getNumActiveStages()) + L" : " + title.getString().str();
  return UIString(LightweightString<wchar_t>(numbered));
}

void WizardPanel::initButtons() {
  if (current_ >= stages_.size())
    return;
  iWizardStage const& stage = *stages_[current_];
  next_->setLabel(stage.getForwardText(), kNoRedraw);
  // The last stage shows its finishing text without an arrow.
  next_->setIconName(current_ == getLastActiveStage() ? "" : kNextIcon, kNoRedraw);
  next_->setAutoResize(true);
  UIString const backText = stage.getBackText();
  back_->setLabel(backText, kNoRedraw);
  back_->setVisible(!backText.getString().empty());
  back_->setAutoResize(true);
  if (back_->isVisible()) {
    int const wider = std::max(next_->width(), back_->width());
    next_->resize(wider, next_->height());
    back_->resize(wider, back_->height());
  }
  next_->setActive(!page_ || page_->canAdvance(), kRedrawNow);
  back_->setActive((!page_ || page_->canRetreat()) && current_ != getFirstActiveStage(), kRedrawNow);
}

int WizardPanel::handleKeyboardEvent(int key) {
  if (key == kKeyReturn && next_ && next_->isActive()) {
    next_->press();
    return 1;
  }
  return StandardPanel::handleKeyboardEvent(key);
}

int WizardPanel::handleNextPressed(ButtonEvent const&) {
  // From the last stage the wizard finishes without asking the page: a page
  // that must check before finishing does so through canAdvance().
  if (current_ == getLastActiveStage()) {
    handleCompletion();
    return 0;
  }
  if (page_ && !page_->requestCompletion())
    return 0;
  setStage(getNextStage(current_), kRedrawNow);
  return 0;
}

int WizardPanel::handleBackPressed(ButtonEvent const&) {
  setStage(getPreviousStage(current_), kRedrawNow);
  return 0;
}

int WizardPanel::handlePageEvent(WizardStagePanelEvent const& event) {
  switch (event.kind) {
  case WizardStagePanelEvent::kGoForward:
    return handleNextPressed(ButtonEvent{ButtonEvent::kPressed, next_, next_->getName()});
  case WizardStagePanelEvent::kGoBack:
    return handleBackPressed(ButtonEvent{ButtonEvent::kPressed, back_, back_->getName()});
  case WizardStagePanelEvent::kStateChanged:
    initButtons();
    next_->invalidate();
    back_->invalidate();
    showTitle(kRedrawNow);
    break;
  default:
    break;
  }
  return 0;
}

void WizardPanel::handleCompletion() {
  if (listenerCount() > 0)
    broadcast(WizardPanelEvent{WizardPanelEvent::kFinished});
  GlobManager::requestDeletion(this);
}

void WizardPanel::handleUIChange(unsigned flags) {
  if (!(flags & kTextsChanged))
    return;
  showTitle(kRedrawNow);
  initButtons();
}
