#include "startup/StartupTestSupport.h"

#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/startup/AnnouncementPanel.h>

namespace {

using AnnouncementGolden = StartupTest;

TEST_F(AnnouncementGolden, ANewsItemWithTextOnly) {
  AnnouncementPanel* panel =
      show(StartupMessage(L"What's new in 4.2",
                          L"<p>Clips now <b>snap</b> to markers while you drag them, and the timeline scrolls with the "
                          L"playhead. Read the <a href=\"https://example.org/4.2\">release notes</a>.</p>",
                          L"", L"golden-text", L"test", L"every start"));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/announcement_text.png"));
}

TEST_F(AnnouncementGolden, ANewsItemWithAPicture) {
  AnnouncementPanel* panel =
      show(StartupMessage(L"Colour wheels", L"<p>The colour page has new wheels for lift, gamma and gain.</p>",
                          writePicture("news.png", XY<int>(96, 72)), L"golden-picture", L"test", L"once"));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/announcement_picture.png"));
}

TEST_F(AnnouncementGolden, ABannerThatComesBack) {
  AnnouncementPanel* panel =
      show(StartupMessage(L"", L"https://example.org/training", writePicture("banner.png", XY<int>(800, 160)),
                          L"golden-banner", L"test", L"every start"));
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*panel), ZO_GOLDEN_DIR "/announcement_banner.png"));
}

} // namespace
