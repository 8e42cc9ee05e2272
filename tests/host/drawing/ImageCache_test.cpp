#include "ImageTestFiles.h"

#include <zowidgets/host/drawing/ImageCache.h>
#include <zowidgets/host/events/EventHandler.h>
#include <zowidgets/host/events/MessageQueue.h>

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace {

using namespace ImageTestFiles;
using ZoImage::Cache;
using ZoImage::ImageLoadInfo;

// Keeps what the cache delivers and on which thread.
class Receiver : public EventHandler {
public:
  int handleEvent(Event const& event) override {
    if (!event.isMessage() || event.message != Cache::kImageLoadedMsg)
      return 0;
    results.push_back(event.data.dynamicCast<ImageLoadInfo>());
    onUserInterfaceThread = onUserInterfaceThread && co_pid() == 0;
    return 1;
  }
  std::vector<Zo::Ptr<ImageLoadInfo>> results;
  bool onUserInterfaceThread = true;
};

LightweightString<wchar_t> wide(std::string const& path) { return LightweightString<wchar_t>::fromUTF8(path); }

std::string picture(int index) {
  return made("cache-" + std::to_string(index) + ".png", "-size 40x30 xc:gray" + std::to_string(10 + index * 10), "");
}

class ImageCacheTest : public ::testing::Test {
protected:
  void SetUp() override { Cache::instance().clear(); }
  void TearDown() override {
    MessageLoop::runUntil([] { return Cache::instance().idle(); }, std::chrono::seconds(20));
    MessageLoop::runPending();
    Cache::instance().clear();
  }
  static bool pumpUntil(std::function<bool()> const& done) {
    return MessageLoop::runUntil(done, std::chrono::seconds(20));
  }
};

TEST_F(ImageCacheTest, DeliversOnTheUserInterfaceThreadAndKeepsOneCopy) {
  Receiver first;
  Receiver second;
  auto const path = wide(picture(1));
  Cache::instance().loadAsync(path, &first);
  Cache::instance().loadAsync(path, &second);
  ASSERT_TRUE(pumpUntil([&] { return first.results.size() == 1 && second.results.size() == 1; }));
  EXPECT_TRUE(first.onUserInterfaceThread);
  EXPECT_TRUE(second.onUserInterfaceThread);
  EXPECT_TRUE(first.results[0]->loaded());
  EXPECT_EQ(first.results[0]->surface().width(), 40);
  EXPECT_TRUE(first.results[0]->surface().sharesPixelsWith(second.results[0]->surface()));
  EXPECT_EQ(Cache::instance().decodeCount(), 1u);
  EXPECT_TRUE(Cache::instance().isCached(path));
  EXPECT_TRUE(Cache::instance().retrieve(path).sharesPixelsWith(first.results[0]->surface()));
}

TEST_F(ImageCacheTest, EachSizeIsItsOwnEntry) {
  Receiver receiver;
  auto const path = wide(picture(2));
  Cache::instance().loadAsync(path, &receiver, {20, 20});
  ASSERT_TRUE(pumpUntil([&] { return receiver.results.size() == 1; }));
  EXPECT_EQ(receiver.results[0]->surface().width(), 20);
  EXPECT_EQ(receiver.results[0]->surface().height(), 15);
  EXPECT_TRUE(Cache::instance().isCached(path, {20, 20}));
  EXPECT_FALSE(Cache::instance().isCached(path));
}

TEST_F(ImageCacheTest, ACachedPictureIsDeliveredWithoutANewDecode) {
  Receiver receiver;
  auto const path = wide(picture(3));
  Cache::instance().loadAsync(path, &receiver);
  ASSERT_TRUE(pumpUntil([&] { return receiver.results.size() == 1; }));
  Cache::instance().loadAsync(path, &receiver);
  ASSERT_TRUE(pumpUntil([&] { return receiver.results.size() == 2; }));
  EXPECT_EQ(Cache::instance().decodeCount(), 1u);
}

TEST_F(ImageCacheTest, AReceiverDestroyedBeforeDeliveryHearsNothing) {
  auto doomed = std::make_unique<Receiver>();
  Receiver survivor;
  auto const path = wide(picture(4));
  Cache::instance().loadAsync(path, doomed.get());
  Cache::instance().loadAsync(path, &survivor);
  doomed.reset();
  // A new receiver may be built at the freed address; it asked for nothing.
  auto const successor = std::make_unique<Receiver>();
  ASSERT_TRUE(pumpUntil([&] { return survivor.results.size() == 1; }));
  MessageLoop::runPending();
  EXPECT_TRUE(successor->results.empty());
}

TEST_F(ImageCacheTest, FailedLoadsDeliverAnEmptyPictureAndAreNotKept) {
  std::string const broken = folder() + "/broken.png";
  writeBytes(broken, "\x89PNG\r\n\x1A\n and nothing more");
  Receiver receiver;
  LogCapture log;
  Cache::instance().loadAsync(wide(broken), &receiver);
  ASSERT_TRUE(pumpUntil([&] { return receiver.results.size() == 1; }));
  EXPECT_FALSE(receiver.results[0]->loaded());
  EXPECT_FALSE(Cache::instance().isCached(wide(broken)));
  EXPECT_EQ(log.lines().size(), 1u);
}

TEST_F(ImageCacheTest, MemoryCeilingEvictsTheLeastRecentlyUsed) {
  std::size_t const onePicture = 40 * 4 * 30;
  Cache::instance().setMemoryCeiling(onePicture * 2);
  Receiver receiver;
  auto const load = [&](int index) {
    std::size_t const before = receiver.results.size();
    Cache::instance().loadAsync(wide(picture(index)), &receiver);
    return pumpUntil([&] { return receiver.results.size() == before + 1; });
  };
  ASSERT_TRUE(load(5));
  ASSERT_TRUE(load(6));
  Cache::instance().retrieve(wide(picture(5))); // 5 is now the more recent
  ASSERT_TRUE(load(7));
  EXPECT_TRUE(Cache::instance().isCached(wide(picture(5))));
  EXPECT_FALSE(Cache::instance().isCached(wide(picture(6))));
  EXPECT_TRUE(Cache::instance().isCached(wide(picture(7))));
  EXPECT_LE(Cache::instance().memoryInUse(), onePicture * 2);
}

} // namespace
