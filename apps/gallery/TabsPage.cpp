// Tabs: pages that switch by click and key, a page taken out and put back
// with its state, a picture scaled to its view, and a rubber band.
#include "PageLayout.h"

#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/panels/TabbedDialogue.h>
#include <zowidgets/host/widgets/popups/SelectionRectangle.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/values/ColourSwatch.h>
#include <zowidgets/host/widgets/values/ImageView.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

// A picture made in code: a sunset of bands with a disc of sun.
Zo::Image::Surface sunset(int width, int height) {
  Zo::Image::Surface image(width, height);
  for (int row = 0; row < height; ++row)
    for (int x = 0; x < width; ++x) {
      double const t = double(row) / height;
      double const dx = x - width * 0.65, dy = row - height * 0.55;
      bool const sun = dx * dx + dy * dy < (height * 0.18) * (height * 0.18);
      int const r = sun ? 250 : static_cast<int>(60 + 190 * t);
      int const g = sun ? 220 : static_cast<int>(40 + 90 * t);
      int const b = sun ? 120 : static_cast<int>(120 - 80 * t);
      image.setPixel(x, row, 0xFF000000u | (unsigned(r) << 16) | (unsigned(g) << 8) | unsigned(b));
    }
  return image;
}

// A patch that shows whether the band picked it: a thick outline in the
// selection colour.
class Patch : public ColourSwatch {
public:
  using ColourSwatch::ColourSwatch;
  void setPicked(bool picked) {
    if (picked == picked_)
      return;
    picked_ = picked;
    invalidate();
  }
  bool isPicked() const noexcept { return picked_; }
  void draw(CanvasRenderer& renderer) override {
    ColourSwatch::draw(renderer);
    if (!picked_)
      return;
    Glib::RectDescription ring(Zo::Box<int>(0, 0, width(), height()), Colour::invalid());
    ring.outline = getPalette().selection();
    ring.outlineWidth = std::max(2, UifStd::getIndentWidth());
    renderer.renderPrimitive(ring);
  }

private:
  bool picked_ = false;
};

// Patches of colour to pick by dragging a rubber band over them.
class PatchBoard : public Glob {
public:
  PatchBoard(GlobCreationInfo const& info, std::function<void(int)> onSelected)
      : Glob(info), onSelected_(std::move(onSelected)) {
    int const side = UifStd::getRowHeight();
    int const gap = UifStd::getWidgetGap();
    for (int i = 0; i < 6; ++i) {
      ColourData const colour(0.15 + 0.14 * i, 0.5, 0.9 - 0.12 * i);
      patches_.push_back(createChild<Patch>(ColourSwatch::InitArgs(XY<int>(side, side), colour),
                                            i == 0 ? TopLeft(gap, gap) : RightOf(gap)));
    }
    band_ = static_cast<SelectionRectangle*>(addWidget(new SelectionRectangle(SelectionRectangle::InitArgs())));
    band_->setVisible(false);
  }

  int react(Event const& event) override {
    if (event.type == Event::kMouseDown && mouse_left_event(event))
      band_->begin(event.position);
    else if (event.type == Event::kMouseMove && band_->isDragging())
      band_->extendTo(event.position);
    else if (event.type == Event::kMouseUp && mouse_left_event(event) && band_->isDragging())
      report(band_->finish());
    else
      return Glob::react(event);
    return 1;
  }

private:
  void report(Zo::Box<int> const& area) {
    int count = 0;
    for (Patch* patch : patches_) {
      bool const picked = !area.intersect(Zo::Box<int>(patch->getX(), patch->getY(), patch->getX() + patch->width(),
                                                       patch->getY() + patch->height()))
                               .empty();
      patch->setPicked(picked);
      count += picked ? 1 : 0;
    }
    onSelected_(count);
  }

  std::function<void(int)> onSelected_;
  std::vector<Patch*> patches_;
  SelectionRectangle* band_ = nullptr;
};

// The page's window: tabs above a line naming the current one, and a button
// that takes the notes page out and puts it back. A page taken out belongs
// to the window until it goes back.
class TabsPanel : public StandardPanel {
public:
  explicit TabsPanel(InitArgs const& args) : StandardPanel(args) {
    PageMetrics const m = PageMetrics::current();
    int const width = getUserArea().width();
    TextLabel::InitArgs statusArgs(XY<int>(width, m.row));
    status_ = createWidget<TextLabel>(statusArgs, UserBottomLeft(0, 0));

    // The tabs before the button in the tree, as on the screen, so that Tab
    // into the window reaches the tab row first.
    int const tabsHeight = getUserArea().height() - 2 * m.row - 2 * m.gap;
    TabbedDialogue::InitArgs tabsArgs(XY<int>(width, tabsHeight));
    tabsArgs.callback = Broadcaster<TabbedDialogueEvent>::makeCallback([this](TabbedDialogueEvent const& event) {
      if (event.kind == TabbedDialogueEvent::kChanged)
        showCurrent();
    });
    tabs_ = createWidget<TabbedDialogue>(tabsArgs, UserTopLeft(0, 0));
    PushButton::InitArgs moveArgs(L"Remove the Notes tab", XY<int>(m.row * 8, 0));
    move_ = createWidget<PushButton>(moveArgs, Above(m.gap, status_));
    move_->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { moveNotes(); }));
    addPages(m);
    showCurrent();
  }
  ~TabsPanel() override { delete takenOut_; }
  char const* idstring() const override { return "TabsPanel"; }

private:
  void addPages(PageMetrics const& m) {
    Glob* clip = tabs_->createPage<Glob>(TabbedDialogue::Page(L"Clip", TooltipDetails(UIString(L"Name and level"))),
                                         GlobCreationInfo());
    int const width = clip->width() - 2 * m.gap;
    auto* nameBox = clip->createChild<TextBox>(TextBox::InitArgs(GlobCreationInfo(XY<int>(width, m.row))),
                                               Glob::TopLeft(m.gap, m.gap));
    nameBox->setString(L"Interview, take 2");
    Slider::InitArgs level(XY<int>(width, m.row));
    level.initialValue = 0.7;
    clip->createChild<Slider>(level, Glob::Below(m.gap, nameBox));

    Glob* picture = tabs_->createPage<Glob>(TabbedDialogue::Page(L"Picture"), GlobCreationInfo());
    ImageView::InitArgs view(XY<int>(picture->width() - 2 * m.gap, picture->height() - 2 * m.gap));
    view.image = sunset(160, 90);
    view.scaling = ImageView::kFit;
    picture->createChild<ImageView>(view, Glob::TopLeft(m.gap, m.gap));

    Glob* select = tabs_->createPage<Glob>(TabbedDialogue::Page(L"Select"), GlobCreationInfo());
    TextLabel::InitArgs hint(XY<int>(width, m.row));
    hint.text = L"Drag across the patches to select them";
    auto* selected = select->createChild<TextLabel>(hint, Glob::BottomLeft(m.gap, m.gap));
    GlobCreationInfo board(XY<int>(width, select->height() - m.row - 3 * m.gap));
    select->addChild(new PatchBoard(board,
                                    [selected](int count) {
                                      selected->setString(WString(std::to_wstring(count) + L" of 6 patches selected"));
                                    }),
                     Glob::TopLeft(m.gap, m.gap));

    notes_ = tabs_->createPage<Glob>(TabbedDialogue::Page(L"Notes", {}, Colour(0.5, 0.36, 0.12)), GlobCreationInfo());
    TextBox::InitArgs note(GlobCreationInfo(XY<int>(width, m.row)));
    note.ghostLabel = L"Type here: the text stays while the page is out";
    notes_->createChild<TextBox>(note, Glob::TopLeft(m.gap, m.gap));
  }

  void showCurrent() {
    int const current = tabs_->getCurrentTab();
    WString const title = current < 0 ? WString(L"none") : tabs_->getTab(current).title.getString();
    status_->setString(WString(L"Current tab: " + title.str() + L" (Ctrl+Tab, or arrows on the tabs)"));
  }

  void moveNotes() {
    if (takenOut_) {
      tabs_->addPageForTab(TabbedDialogue::Page(L"Notes", {}, Colour(0.5, 0.36, 0.12)), takenOut_);
      tabs_->setCurrentPage(takenOut_);
      takenOut_ = nullptr;
      move_->setLabel(L"Remove the Notes tab");
    } else {
      takenOut_ = tabs_->removePage(tabs_->findPage(notes_));
      move_->setLabel(L"Put the Notes tab back");
    }
  }

  TabbedDialogue* tabs_ = nullptr;
  TextLabel* status_ = nullptr;
  PushButton* move_ = nullptr;
  Glob* notes_ = nullptr;
  Glob* takenOut_ = nullptr;
};

Glob* buildTabsPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  unsigned const widgets = StandardPanel::kTitle | StandardPanel::kPoot;
  XY<int> const userArea(m.row * 16, TabbedDialogue::calcHeightForContents(4 * m.row) + 2 * m.row + 2 * m.gap);
  StandardPanel::InitArgs args(StandardPanel::calcPanelSize(userArea, widgets, StandardPanel::getDefaultBorder()));
  args.screenPosition = context.screenPosition;
  args.standardWidgets = widgets;
  args.title = L"Tabs";
  auto* panel = new TabsPanel(args);
  GlobManager::realize(panel);
  return panel;
}

PageRegistrar const tabsPage{"tabs", "Tabs",
                             "A TabbedDialogue: pages with a text box and slider, a fitted ImageView, patches picked "
                             "with a rubber band; tabs switch by click, Ctrl+Tab or arrows, and the notes page can be "
                             "taken out and put back with its text",
                             buildTabsPage};

} // namespace
