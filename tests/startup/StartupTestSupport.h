#pragma once

#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/ImageSaver.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/shell/StartupMessage.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/startup/AnnouncementPanel.h>

#include <filesystem>
#include <string>

// A headless screen, a folder of the test's own for pictures, and shell
// requests recorded from a clean start.
class StartupTest : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    folder_ = std::filesystem::temp_directory_path() /
              ("zo-startup-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(folder_);
    IconCache::clear();
    OS().clearRecordedShellRequests();
  }
  void TearDown() override {
    OS().clearRecordedShellRequests();
    IconCache::clear();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
    HeadlessScreenTest::TearDown();
  }

  // A picture of `size` saved as PNG in the test's folder: a gradient, so
  // that a part of it shown anywhere can be told apart.
  LightweightString<wchar_t> writePicture(std::string const& name, XY<int> size) {
    Zo::Image::Surface picture(size.x, size.y);
    for (int y = 0; y < size.y; ++y)
      for (int x = 0; x < size.x; ++x) {
        std::uint32_t const red = static_cast<std::uint32_t>(255 * x / std::max(1, size.x - 1));
        std::uint32_t const blue = static_cast<std::uint32_t>(255 * y / std::max(1, size.y - 1));
        picture.setPixel(x, y, 0xff000000u | (red << 16) | (0x60u << 8) | blue);
      }
    std::string const path = (folder_ / name).string();
    EXPECT_TRUE(ZoImage::Saver::saveImage(picture, path));
    return LightweightString<wchar_t>(std::filesystem::path(path).wstring().c_str());
  }

  std::filesystem::path const& folder() const { return folder_; }

  // The message's panel, opened as a program opens it, and painted.
  static AnnouncementPanel* show(StartupMessage const& message) {
    auto* panel = new AnnouncementPanel(AnnouncementPanel::InitArgs(message));
    GlobManager::realize(panel);
    pump();
    return panel;
  }

private:
  std::filesystem::path folder_;
};
