#include "startup/StartupTestSupport.h"

#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>
#include <zowidgets/host/widgets/values/ImageView.h>
#include <zowidgets/startup/AnnouncementPanel.h>

#include <cstdio>
#include <string_view>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

StartupMessage banner(WString const& picture, WString const& recurrence) {
  return StartupMessage(L"", L"https://example.org/whats-new", picture, L"banner-" + recurrence.str(), L"test",
                        recurrence);
}

StartupMessage newsItem(WString const& picture, WString const& recurrence, WString const& text) {
  return StartupMessage(L"What's new", text, picture, L"news-" + recurrence.str(), L"test", recurrence);
}

template <class T> std::vector<T*> childrenOf(Glob& parent) {
  std::vector<T*> found;
  for (Glob* child : parent.getChildren())
    if (auto* wanted = dynamic_cast<T*>(child))
      found.push_back(wanted);
  return found;
}

Glob* childNamed(Glob& parent, char const* idstring) {
  for (Glob* child : parent.getChildren())
    if (std::string_view(child->idstring()) == idstring)
      return child;
  return nullptr;
}

using AnnouncementPanelTest = StartupTest;

TEST_F(AnnouncementPanelTest, ALinkTextMakesABanner) {
  EXPECT_TRUE(AnnouncementPanel::isBanner(banner(L"", L"once")));
  EXPECT_EQ(AnnouncementPanel::getBannerLink(banner(L"", L"once")), WString(L"https://example.org/whats-new"));
  StartupMessage const paragraph = newsItem(L"", L"once", L"<p>Faster trims</p>");
  EXPECT_FALSE(AnnouncementPanel::isBanner(paragraph));
  EXPECT_TRUE(AnnouncementPanel::getBannerLink(paragraph).empty());
}

TEST_F(AnnouncementPanelTest, ABannerAtScaleOneIsHalfItsPicturesPixels) {
  WString const picture = writePicture("banner.png", XY<int>(480, 160));
  AnnouncementPanel::InitArgs const args(banner(picture, L"once"));
  int const edge = 2 * args.border.thickness();
  EXPECT_EQ(args.calcSize(), XY<int>(240 + edge, 80 + edge + AnnouncementPanel::calcFooterHeight()));
}

TEST_F(AnnouncementPanelTest, ABannersSizeFollowsTheInterfaceScale) {
  WString const picture = writePicture("banner.png", XY<int>(480, 160));
  UifStd::setScale(2.0);
  AnnouncementPanel::InitArgs const args(banner(picture, L"once"));
  int const edge = 2 * args.border.thickness();
  EXPECT_EQ(args.calcSize(), XY<int>(480 + edge, 160 + edge + AnnouncementPanel::calcFooterHeight()));
}

TEST_F(AnnouncementPanelTest, ARecurringBannerHasAFooterWithItsCheckbox) {
  WString const picture = writePicture("banner.png", XY<int>(480, 160));
  AnnouncementPanel* panel = show(banner(picture, L"every start"));
  ASSERT_NE(panel->dontShowAgain(), nullptr);
  Glob* view = childNamed(*panel, "Banner");
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->height(),
            panel->height() - AnnouncementPanel::calcFooterHeight() - 2 * panel->getBorder().thickness());
  // The checkbox lies in the footer, under the picture.
  EXPECT_LT(panel->dontShowAgain()->getPosition().y + panel->dontShowAgain()->height(), view->getPosition().y + 1);
}

TEST_F(AnnouncementPanelTest, ABannerShownOnceHasNoCheckboxButKeepsTheFootersHeight) {
  WString const picture = writePicture("banner.png", XY<int>(480, 160));
  AnnouncementPanel* panel = show(banner(picture, L"once"));
  EXPECT_EQ(panel->dontShowAgain(), nullptr);
  EXPECT_TRUE(childrenOf<Checkbox>(*panel).empty());
  Glob* view = childNamed(*panel, "Banner");
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(panel->height(),
            view->height() + AnnouncementPanel::calcFooterHeight() + 2 * panel->getBorder().thickness());
}

TEST_F(AnnouncementPanelTest, AClickOnABannerOpensItsLinkButADragDoesNot) {
  WString const picture = writePicture("banner.png", XY<int>(480, 160));
  AnnouncementPanel* panel = show(banner(picture, L"once"));
  Glob* view = childNamed(*panel, "Banner");
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->getTooltip().getString(), WString(L"https://example.org/whats-new"));

  HeadlessInput::drag(HeadlessInput::pointOn(*view, XY<int>(20, 20)), HeadlessInput::pointOn(*view, XY<int>(120, 60)));
  pump();
  EXPECT_TRUE(OS().recordedShellRequests().empty());

  HeadlessInput::clickOn(*view, XY<int>(60, 40));
  pump();
  std::vector<Zo::ShellRequest> const requests = OS().recordedShellRequests();
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests[0].kind, Zo::ShellRequest::Kind::open);
  ASSERT_FALSE(requests[0].targets.empty());
  EXPECT_EQ(requests[0].targets[0], WString(L"https://example.org/whats-new"));
}

TEST_F(AnnouncementPanelTest, AMessageShownOnceIsMarkedReadWhenItsPanelIsDeleted) {
  StartupMessage const message = newsItem(L"", L"once", L"<p>Faster trims</p>");
  ASSERT_TRUE(message.shouldShow());
  AnnouncementPanel* panel = show(message);
  GlobManager::requestDeletion(panel);
  pump();
  EXPECT_TRUE(message.isRead());
  EXPECT_FALSE(message.shouldShow());
}

TEST_F(AnnouncementPanelTest, AMessageShownOnceIsMarkedReadWhenItsPanelIsDestroyedDirectly) {
  StartupMessage const message = newsItem(L"", L"once", L"<p>Faster exports</p>");
  delete show(message);
  pump();
  EXPECT_TRUE(message.isRead());
}

TEST_F(AnnouncementPanelTest, AMessageShownOnceIsMarkedReadWhenItsPanelIsClosedWithTheCloseButton) {
  StartupMessage const message = newsItem(L"", L"once", L"<p>New keyboard map</p>");
  AnnouncementPanel* panel = show(message);
  panel->addStandardWidgets(StandardPanel::kPoot);
  pump();
  Zo::Box<int> const poot = panel->getStandardWidgetBox(StandardPanel::kPoot);
  ASSERT_FALSE(poot.empty());
  HeadlessInput::clickOn(*panel, XY<int>((poot.x0 + poot.x1) / 2, (poot.y0 + poot.y1) / 2));
  pump();
  EXPECT_TRUE(message.isRead());
}

TEST_F(AnnouncementPanelTest, EscapeClosesTheAnnouncementAndMarksItRead) {
  StartupMessage const message = newsItem(L"", L"once", L"<p>Ripple edits</p>");
  AnnouncementPanel* panel = show(message);
  HeadlessInput::clickOn(*panel, XY<int>(panel->width() / 2, panel->height() / 2));
  pump();
  ASSERT_TRUE(is_good_glob_ptr(panel)) << "a press inside leaves it open";
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(panel));
  EXPECT_TRUE(message.isRead());
}

TEST_F(AnnouncementPanelTest, APressOutsideClosesAnUnpinnedAnnouncementAndStillReachesItsWidget) {
  StandardPanel* other = openPanel(XY<int>(200, 100), XY<int>(700, 500));
  std::vector<ButtonEvent> clicks;
  auto* button =
      other->createWidget<Button>(Button::InitArgs(UIString(L"Play"), XY<int>(80, 0)), Glob::UserTopLeft(0, 0));
  button->setCallback(
      Broadcaster<ButtonEvent>::makeCallback([&clicks](ButtonEvent const& event) { clicks.push_back(event); }));
  StartupMessage const message = newsItem(L"", L"once", L"<p>Audio scrubbing</p>");
  AnnouncementPanel* panel = show(message);
  HeadlessInput::clickOn(*button);
  pump();
  EXPECT_FALSE(is_good_glob_ptr(panel));
  EXPECT_TRUE(message.isRead());
  EXPECT_EQ(clicks.size(), 1u) << "the press went on to the button";
}

TEST_F(AnnouncementPanelTest, APinnedAnnouncementStaysOnAPressOutside) {
  StandardPanel* other = openPanel(XY<int>(200, 100), XY<int>(700, 500));
  AnnouncementPanel* panel = show(newsItem(L"", L"once", L"<p>Multicam</p>"));
  Zo::Box<int> const pin = panel->getStandardWidgetBox(StandardPanel::kPin);
  ASSERT_FALSE(pin.empty());
  HeadlessInput::clickOn(*panel, XY<int>((pin.x0 + pin.x1) / 2, (pin.y0 + pin.y1) / 2));
  pump();
  ASSERT_TRUE(panel->isPinned());
  HeadlessInput::clickOn(*other);
  pump();
  EXPECT_TRUE(is_good_glob_ptr(panel));
}

TEST_F(AnnouncementPanelTest, AnAnnouncementInsideAnotherPanelIsLeftToThatPanel) {
  StandardPanel* host = openPanel(XY<int>(900, 400), XY<int>(100, 100));
  auto* panel = host->createWidget<AnnouncementPanel>(
      AnnouncementPanel::InitArgs(newsItem(L"", L"once", L"<p>Proxies</p>")), Glob::UserTopLeft(0, 0));
  pump();
  HeadlessInput::clickOn(*host, XY<int>(host->width() - 5, 5));
  HeadlessInput::key(kKeyEscape);
  pump();
  EXPECT_TRUE(is_good_glob_ptr(panel));
}

TEST_F(AnnouncementPanelTest, ARecurringMessageComesBackUnlessItsCheckboxIsTicked) {
  StartupMessage const left = newsItem(L"", L"every start", L"<p>Tip of the day</p>");
  delete show(left);
  EXPECT_FALSE(left.isRead());

  StartupMessage const ticked(L"Tips", L"<p>Another tip</p>", L"", L"ticked-tip", L"test", L"every start");
  AnnouncementPanel* panel = show(ticked);
  ASSERT_NE(panel->dontShowAgain(), nullptr);
  HeadlessInput::clickOn(*panel->dontShowAgain(), XY<int>(6, panel->dontShowAgain()->height() / 2));
  pump();
  ASSERT_TRUE(panel->dontShowAgain()->isChecked());
  GlobManager::requestDeletion(panel);
  pump();
  EXPECT_TRUE(ticked.isRead());
}

TEST_F(AnnouncementPanelTest, ARecurringMessagesTickBoxHasARowOfItsOwnUnderTheText) {
  WString const picture = writePicture("tip.png", XY<int>(120, 90));
  for (WString const& image : {WString(), picture}) {
    StartupMessage const tip = newsItem(image, L"every start", L"<p>Tip of the day: J, K and L shuttle.</p>");
    AnnouncementPanel* panel = show(tip);
    Checkbox* box = panel->dontShowAgain();
    ASSERT_NE(box, nullptr);
    std::vector<LinkAwareMultiLineTextBox*> const texts = childrenOf<LinkAwareMultiLineTextBox>(*panel);
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_LE(box->getY() + box->height(), texts[0]->getY()) << "the tick box lies wholly below the text's frame";
    EXPECT_GE(texts[0]->height(), MultiLineTextBox::calcHeightForLines(1, getDefaultFontSize(), 0))
        << "and the text keeps its room";
    EXPECT_GE(box->getY(), 0) << "inside the panel";
    delete panel;
  }
}

TEST_F(AnnouncementPanelTest, APictureAndTextSitSideBySide) {
  WString const picture = writePicture("news.png", XY<int>(120, 90));
  AnnouncementPanel* panel = show(newsItem(picture, L"once", L"<p>Clips now snap to markers.</p>"));
  std::vector<ImageView*> const views = childrenOf<ImageView>(*panel);
  std::vector<LinkAwareMultiLineTextBox*> const texts = childrenOf<LinkAwareMultiLineTextBox>(*panel);
  ASSERT_EQ(views.size(), 1u);
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(views[0]->width(), 120);
  EXPECT_EQ(views[0]->height(), 90);
  EXPECT_GE(texts[0]->getPosition().x, views[0]->getPosition().x + views[0]->width());
  EXPECT_EQ(HTMLRenderer::visibleText(texts[0]->getHTML()), WString(L"Clips now snap to markers."));
  EXPECT_EQ(panel->getTitle().getString(), WString(L"What's new"));
}

TEST_F(AnnouncementPanelTest, AWidePictureIsShownTenRowsWideInProportion) {
  WString const picture = writePicture("wide.png", XY<int>(2000, 500));
  AnnouncementPanel* panel = show(newsItem(picture, L"once", L"<p>Wide</p>"));
  std::vector<ImageView*> const views = childrenOf<ImageView>(*panel);
  ASSERT_EQ(views.size(), 1u);
  int const width = 10 * UifStd::getRowHeight();
  EXPECT_EQ(views[0]->width(), width);
  EXPECT_EQ(views[0]->height(), width * 500 / 2000);
}

TEST_F(AnnouncementPanelTest, APictureThatDoesNotLoadLeavesTheTextAndShowsALinkAsText) {
  std::string const broken = (folder() / "broken.png").string();
  {
    std::FILE* file = std::fopen(broken.c_str(), "wb");
    std::fputs("not a picture", file);
    std::fclose(file);
  }
  StartupMessage const message(L"", L"https://example.org/broken",
                               WString(std::filesystem::path(broken).wstring().c_str()), L"broken", L"test", L"once");
  AnnouncementPanel::InitArgs const args(message);
  EXPECT_TRUE(args.image.empty());
  AnnouncementPanel* panel = show(message);
  EXPECT_EQ(childNamed(*panel, "Banner"), nullptr);
  EXPECT_TRUE(childrenOf<ImageView>(*panel).empty());
  std::vector<LinkAwareMultiLineTextBox*> const texts = childrenOf<LinkAwareMultiLineTextBox>(*panel);
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(HTMLRenderer::visibleText(texts[0]->getHTML()), WString(L"https://example.org/broken"));
}

TEST_F(AnnouncementPanelTest, EmptyTextGivesAPanelOneLineHigh) {
  StartupMessage const message(L"", L"", L"", L"empty", L"test", L"once");
  AnnouncementPanel::InitArgs const args(message);
  int const oneLine = MultiLineTextBox::calcHeightForLines(1, getDefaultFontSize(), UifStd::getWidgetGap());
  EXPECT_EQ(args.calcSize(), StandardPanel::calcPanelSize(XY<int>(25 * UifStd::getRowHeight(), oneLine),
                                                          StandardPanel::kTitle, args.border));
}

TEST_F(AnnouncementPanelTest, TheTextSitsOnAColourATenthBrighterThanThePanel) {
  AnnouncementPanel* panel = show(newsItem(L"", L"once", L"<p>Brighter</p>"));
  std::vector<LinkAwareMultiLineTextBox*> const texts = childrenOf<LinkAwareMultiLineTextBox>(*panel);
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(rgbOf(texts[0]->getPalette().window()), rgbOf(scale(panel->getPalette().window(0), 1.1)));
}

} // namespace
