#include "ThumbnailTestFolder.h"
#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/ImageCache.h>
#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/images/ImageItem.h>
#include <zowidgets/images/ImageThumbnailBrowser.h>

#include <chrono>
#include <fstream>
#include <thread>

namespace {

using namespace HeadlessInput;
using ImageItem = ImageThumbnailBrowser::ImageItem;
using ZoImage::Cache;

LightweightString<wchar_t> wide(std::string const& text) { return LightweightString<wchar_t>::fromUTF8(text); }

class ThumbnailBrowserTest : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    Cache::instance().clear();
    panel = openPanel(XY<int>(360, 340));
  }
  void TearDown() override {
    MessageLoop::runUntil([] { return Cache::instance().idle(); }, std::chrono::seconds(30));
    HeadlessScreenTest::TearDown();
    Cache::instance().clear();
  }
  ImageThumbnailBrowser* addBrowser(unsigned short lineHeight = 40) {
    ImageThumbnailBrowser::InitArgs args(GlobCreationInfo(XY<int>(320, 300)));
    args.lineHeight = lineHeight;
    return panel->createWidget<ImageThumbnailBrowser>(args, Glob::UserTopLeft(10, 10));
  }
  static ImageItem* row(ImageThumbnailBrowser* browser, int index) {
    return dynamic_cast<ImageItem*>(browser->getRowWidget(index));
  }
  static bool allLiveRowsHaveThumbnails(ImageThumbnailBrowser* browser) {
    for (int i = browser->getFirstVisibleIndex(); i <= browser->getLastVisibleIndex(); ++i) {
      ImageItem const* item = row(browser, i);
      if (!item || item->thumbnail().empty())
        return false;
    }
    return true;
  }
  // Pumps the loop as a program's main loop would, until every row in sight
  // shows its thumbnail; returns the longest time one turn of the loop took.
  static std::chrono::milliseconds pumpUntilLoaded(ImageThumbnailBrowser* browser) {
    using Clock = std::chrono::steady_clock;
    auto longest = Clock::duration::zero();
    auto const deadline = Clock::now() + std::chrono::seconds(60);
    while (!allLiveRowsHaveThumbnails(browser) && Clock::now() < deadline) {
      auto const start = Clock::now();
      MessageLoop::runPending();
      longest = std::max(longest, Clock::now() - start);
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    pump();
    return std::chrono::duration_cast<std::chrono::milliseconds>(longest);
  }

  StandardPanel* panel = nullptr;
};

TEST_F(ThumbnailBrowserTest, AFolderWithNoLoadableFileGivesAnEmptyList) {
  std::string const folder = ThumbnailTestFolder::root() + "/no-pictures";
  std::filesystem::create_directories(folder);
  std::ofstream(folder + "/notes.jpg") << "a text file wearing a picture's name";
  std::ofstream(folder + "/readme.txt") << "words";
  ImageThumbnailBrowser* browser = addBrowser();
  browser->setPath(wide(folder));
  EXPECT_EQ(browser->size(), 0);
  EXPECT_TRUE(browser->getFiles().empty());
}

TEST_F(ThumbnailBrowserTest, AFolderListsItsPicturesByNameWithoutExtension) {
  std::string const folder = ThumbnailTestFolder::folderOf("three", 3);
  std::ofstream(folder + "/zz-notes.txt") << "not a picture";
  ImageThumbnailBrowser* browser = addBrowser();
  browser->setPath(wide(folder));
  ASSERT_EQ(browser->size(), 3);
  EXPECT_EQ(browser->getStrings()[0], LightweightString<wchar_t>(L"picture-000"));
  EXPECT_STREQ(browser->idstring(), "ImageThumbnailBrowser");
  pump();
  ASSERT_NE(row(browser, 0), nullptr);
  EXPECT_STREQ(row(browser, 0)->idstring(), "ImageItem");
  clickOn(*row(browser, 1));
  pump();
  EXPECT_EQ(browser->getSelectedFile(), wide(folder + "/picture-001.jpg"));
  std::vector<LightweightString<wchar_t>> selected;
  browser->getSelectedFiles(selected);
  ASSERT_EQ(selected.size(), 1u);
  EXPECT_EQ(selected[0], wide(folder + "/picture-001.jpg"));
}

// Two hundred photos: the rows in sight get their thumbnails while the loop
// keeps turning (the longest turn is reported with the test's properties),
// and only they are decoded; wheeling down decodes the newly shown rows and
// no others.
TEST_F(ThumbnailBrowserTest, OnlyVisibleRowsAreDecodedAndTheLoopNeverStalls) {
  std::string const folder = ThumbnailTestFolder::folderOf("two-hundred", 200);
  ImageThumbnailBrowser* browser = addBrowser();
  browser->setPath(wide(folder));
  ASSERT_EQ(browser->size(), 200);
  std::chrono::milliseconds const longest = pumpUntilLoaded(browser);
  ASSERT_TRUE(allLiveRowsHaveThumbnails(browser));
  // Reported, not asserted: unit tests hold no timing limits.
  RecordProperty("longest_loop_turn_ms", static_cast<int>(longest.count()));
  int const firstShown = browser->getFirstVisibleIndex();
  int const lastShown = browser->getLastVisibleIndex();
  int const shown = lastShown - firstShown + 1;
  EXPECT_EQ(Cache::instance().decodeCount(), std::size_t(shown));
  EXPECT_LT(shown, 12);

  wheel(pointOn(*browser), -3);
  pump();
  int const first = browser->getFirstVisibleIndex();
  ASSERT_GT(first, 0);
  std::chrono::milliseconds const longestAfterScroll = pumpUntilLoaded(browser);
  ASSERT_TRUE(allLiveRowsHaveThumbnails(browser));
  RecordProperty("longest_loop_turn_after_scroll_ms", static_cast<int>(longestAfterScroll.count()));
  int const last = browser->getLastVisibleIndex();
  // Every row ever in sight was decoded once; the rows the wheel skipped
  // over, and those below, never were.
  int const overlap = std::max(0, lastShown - first + 1);
  EXPECT_EQ(Cache::instance().decodeCount(), std::size_t(shown + (last - first + 1) - overlap));
  if (first > lastShown + 1) {
    EXPECT_FALSE(Cache::instance().isCached(wide(ThumbnailTestFolder::pictureIn(folder, first - 1)),
                                            {ImageItem::kDecodedSide, ImageItem::kDecodedSide}));
  }
  EXPECT_FALSE(Cache::instance().isCached(wide(ThumbnailTestFolder::pictureIn(folder, 199)),
                                          {ImageItem::kDecodedSide, ImageItem::kDecodedSide}));
}

TEST_F(ThumbnailBrowserTest, ARowDeletedWhileItsPictureLoadsIgnoresTheResult) {
  std::string const folder = ThumbnailTestFolder::folderOf("deleted", 4);
  ImageThumbnailBrowser* browser = addBrowser();
  browser->setPath(wide(folder));
  // The rows draw and ask for their pictures.
  ASSERT_TRUE(MessageLoop::runUntil([] { return Cache::instance().decodeCount() > 0; }, std::chrono::seconds(10)));
  browser->setFiles({}); // every row goes while the workers decode
  ASSERT_TRUE(MessageLoop::runUntil([] { return Cache::instance().idle(); }, std::chrono::seconds(30)));
  pump();
  EXPECT_EQ(browser->size(), 0);
  // The pictures stay in the cache for the next browser, which fills at once.
  EXPECT_TRUE(Cache::instance().isCached(wide(folder + "/picture-000.jpg"),
                                         {ImageItem::kDecodedSide, ImageItem::kDecodedSide}));
  std::size_t const decodes = Cache::instance().decodeCount();
  browser->setPath(wide(folder));
  pumpUntilLoaded(browser);
  EXPECT_TRUE(allLiveRowsHaveThumbnails(browser));
  EXPECT_EQ(Cache::instance().decodeCount(), decodes);
}

TEST_F(ThumbnailBrowserTest, ANewLineHeightKeepsTheSelectionAndRebuildsThumbnailsFromTheCache) {
  std::string const folder = ThumbnailTestFolder::folderOf("heights", 5);
  ImageThumbnailBrowser* browser = addBrowser(40);
  browser->setPath(wide(folder));
  pumpUntilLoaded(browser);
  clickOn(*row(browser, 2));
  pump();
  std::size_t const decodes = Cache::instance().decodeCount();
  int const oldHeight = row(browser, 0)->thumbnail().height();

  browser->setLineHeight(56);
  pump();
  EXPECT_EQ(browser->getSelectedIndex(), 2);
  EXPECT_EQ(browser->getSelectedFile(), wide(folder + "/picture-002.jpg"));
  EXPECT_TRUE(allLiveRowsHaveThumbnails(browser));
  EXPECT_EQ(row(browser, 0)->thumbnail().height(), oldHeight + 16);
  EXPECT_EQ(Cache::instance().decodeCount(), decodes);
}

TEST_F(ThumbnailBrowserTest, AFileThatNoLongerExistsNeverStartsALoad) {
  std::string const folder = ThumbnailTestFolder::root() + "/vanishing";
  std::filesystem::create_directories(folder);
  std::string const gone = folder + "/gone.jpg";
  std::filesystem::copy_file(ThumbnailTestFolder::photo(), gone, std::filesystem::copy_options::overwrite_existing);
  std::filesystem::remove(gone);
  ImageThumbnailBrowser* browser = addBrowser();
  browser->setFiles({wide(gone)});
  ASSERT_EQ(browser->size(), 1);
  // Several turns of the loop, each of which may draw the row.
  for (int turn = 0; turn < 20; ++turn) {
    browser->invalidate();
    MessageLoop::runUntil([] { return false; }, std::chrono::milliseconds(5));
  }
  ASSERT_NE(row(browser, 0), nullptr);
  EXPECT_EQ(Cache::instance().decodeCount(), 0u);
  EXPECT_TRUE(row(browser, 0)->thumbnail().empty());
}

TEST_F(ThumbnailBrowserTest, InactiveRowsShowTheirThumbnailDimmedIntoTheWindowShades) {
  std::string const folder = ThumbnailTestFolder::folderOf("dimmed", 1);
  ImageThumbnailBrowser* browser = addBrowser();
  browser->setPath(wide(folder));
  pumpUntilLoaded(browser);
  ImageItem* item = row(browser, 0);
  Zo::Image::Surface const& dimmed = item->makeInactiveThumb();
  ASSERT_EQ(dimmed.width(), item->thumbnail().width());
  EXPECT_TRUE(&dimmed == &item->makeInactiveThumb()); // made once
  Rgb const dark = rgbOf(item->getPalette().window(-2));
  Rgb const light = rgbOf(item->getPalette().window(3));
  for (XY<int> const& at : {XY<int>(1, 1), XY<int>(dimmed.width() / 2, dimmed.height() / 2)}) {
    Rgb const p = rgbOf(dimmed.pixel(at.x, at.y));
    EXPECT_GE(p.r, std::min(dark.r, light.r) - 1);
    EXPECT_LE(p.r, std::max(dark.r, light.r) + 1);
  }
  item->setActive(false, kRedrawNow);
  EXPECT_TRUE(item->getThumb().sharesPixelsWith(dimmed));
}

TEST_F(ThumbnailBrowserTest, HidingThumbnailsReleasesThem) {
  std::string const folder = ThumbnailTestFolder::folderOf("hidden", 1);
  ImageThumbnailBrowser* browser = addBrowser();
  browser->setPath(wide(folder));
  pumpUntilLoaded(browser);
  ImageItem* item = row(browser, 0);
  ASSERT_FALSE(item->thumbnail().empty());
  item->showThumbnails(false);
  pump();
  EXPECT_TRUE(item->thumbnail().empty());
}

} // namespace
