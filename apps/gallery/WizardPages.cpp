// The wizard, the page index and the factory wrapper panel.
#include "PageLayout.h"

#include <zowidgets/containers/FactoryGlobWrapperPanel.h>
#include <zowidgets/containers/PageIndexWidget.h>
#include <zowidgets/containers/WizardPanel.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

constexpr char const* kProxiesKey = "proxies";

// A stage whose page holds a paragraph of text, and optionally a picture and
// a tick box for the proxies.
class ExportStage : public iWizardStage {
public:
  ExportStage(UIString title, UIString text) : title_(std::move(title)), text_(std::move(text)) {}

  WizardStagePanel* createPage(StandardPanel& parent, WidgetPosition const& position, XY<int> size) override {
    PageMetrics const m = PageMetrics::current();
    auto* page =
        parent.createWidget<WizardStagePanel>(WizardStagePanel::InitArgs(size, getData(), imageName), position);
    Zo::Box<int> const area = page->getUserArea();
    TextLabel::InitArgs text(XY<int>(area.width(), 3 * m.row));
    text.text = text_;
    text.wordWrap = true;
    auto* paragraph = page->createWidget<TextLabel>(text, Glob::UserTopLeft(0, 0));
    if (offersProxies) {
      bool const ticked = getData()->values().getBool(kProxiesKey);
      Checkbox::InitArgs box(UIString(L"Make proxies first"), XY<int>(area.width(), m.row), ticked);
      auto* proxies = page->createWidget<Checkbox>(box, Glob::Below(m.rowGap, paragraph));
      // The proxy stage counts only while the box is ticked: the title's
      // numbering and the buttons follow at once.
      proxies->setCallback(Broadcaster<CheckboxEvent>::makeCallback([page](CheckboxEvent const& event) {
        page->getData()->values().set(kProxiesKey, event.checked);
        page->broadcast(WizardStagePanelEvent{WizardStagePanelEvent::kStateChanged});
      }));
    }
    return page;
  }
  UIString getTitle() const override { return title_; }
  UIString getForwardText() const override {
    return forwardText.empty() ? iWizardStage::getForwardText() : forwardText;
  }
  bool isEnabled() const override { return !needsProxies || getData()->values().getBool(kProxiesKey); }

  std::string imageName;
  UIString forwardText;
  bool offersProxies = false;
  bool needsProxies = false;

private:
  UIString title_;
  UIString text_;
};

Glob* buildWizardPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  Zo::Ptr<ExportStage> clips(new ExportStage(
      UIString(L"Find the clips"), UIString(L"The clips of the open sequence are exported, each to a file of its own. "
                                            L"Tick the box to make proxies of them first.")));
  clips->imageName = "magnify.png";
  clips->offersProxies = true;
  Zo::Ptr<ExportStage> proxies(new ExportStage(UIString(L"Proxy settings"),
                                               UIString(L"Proxies are made at half size, in the project's folder.")));
  proxies->needsProxies = true;
  Zo::Ptr<ExportStage> render(new ExportStage(
      UIString(L"Render"), UIString(L"Render writes the files; the wizard closes when it has started.")));
  render->forwardText = UIString(L"Render");

  unsigned const standard = StandardPanel::kPoot;
  WizardPanel::InitArgs args(WizardPanel::calcSize(XY<int>(18 * m.row, 6 * m.row), standard),
                             WizardPanel::StageList{clips, proxies, render});
  args.standardWidgets = standard;
  args.screenPosition = context.screenPosition;
  auto* wizard = new WizardPanel(args);
  GlobManager::realize(wizard);
  return wizard;
}

Glob* buildPageIndexPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = PageIndexWidget::calcWidth(11, 40, 9);
  StandardPanel* panel = openPageWindow(context, XY<int>(width, 4 * m.row + 3 * m.rowGap), L"Page index");
  TextLabel::InitArgs caption(XY<int>(width, m.row));
  caption.text = UIString(L"Search results: 40 pages");
  Glob* above = panel->createWidget<TextLabel>(caption, Glob::UserTopLeft(0, 0));
  PageIndexWidget::InitArgs results({}, 11, 40, 9, XY<int>(width, m.row));
  above = panel->createWidget<PageIndexWidget>(results, Glob::Below(m.rowGap, above));
  caption.text = UIString(L"An empty bin");
  above = panel->createWidget<TextLabel>(caption, Glob::Below(m.rowGap, above));
  auto* empty = panel->createWidget<PageIndexWidget>(PageIndexWidget::InitArgs({}, 0, 0, 9, XY<int>(width, m.row)),
                                                     Glob::Below(m.rowGap, above));
  empty->setEmptyLabel(UIString(L"No clips"));
  return panel;
}

Glob* buildFactoryWrapperPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  unsigned const standard = StandardPanel::kTitle | StandardPanel::kPoot;
  FactoryGlobWrapperPanel::InitArgs args(
      StandardPanel::calcPanelSize(XY<int>(12 * m.row, m.row), standard, StandardPanel::getDefaultBorder()), "Slider",
      UIString(L"A Slider, made by name"));
  args.standardWidgets = standard;
  args.screenPosition = context.screenPosition;
  auto* panel = new FactoryGlobWrapperPanel(args);
  GlobManager::realize(panel);
  return panel;
}

PageRegistrar const wizardPage{"wizard", "Wizard",
                               "A three-stage export wizard: the first stage has a picture, the second is disabled "
                               "until its tick box is ticked (watch the numbering in the title), the last one "
                               "finishes with Render and closes the wizard",
                               buildWizardPage};
PageRegistrar const pageIndexPage{"page-index", "Page index",
                                  "Page bars: a run of at most nine numbers around the current page between arrows, "
                                  "and one with no pages showing its empty label",
                                  buildPageIndexPage};
PageRegistrar const factoryWrapperPage{"factory-wrapper", "Factory wrapper",
                                       "A titled panel around a host widget made only from its class name, "
                                       "\"Slider\", through the widget registry",
                                       buildFactoryWrapperPage};

} // namespace
