#include "LoggerTestSupport.h"

#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/logging/LogFiles.h>

#include <cstdio>
#include <cstdlib>

namespace {

// The saved HTML opened in a real browser, headless: what it shows, and
// that nothing in it ran.
struct LogInBrowser : LoggerTest {
  std::string browser;

  void SetUp() override {
    LoggerTest::SetUp();
    for (char const* candidate : {"/usr/bin/chromium", "/usr/bin/chromium-browser"})
      if (std::filesystem::exists(candidate))
        browser = candidate;
    if (browser.empty())
      GTEST_SKIP() << "chromium is not installed (Debian package chromium, scripts/packages/logging.txt)";
  }

  std::string run(std::string const& arguments) {
    std::string const command = browser + " --headless --no-sandbox --disable-gpu " + arguments + " 2>/dev/null";
    std::string output;
    if (FILE* pipe = ::popen(command.c_str(), "r")) {
      char buffer[4096];
      for (std::size_t read; (read = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        output.append(buffer, read);
      ::pclose(pipe);
    }
    return output;
  }
  std::string dumpDom(std::filesystem::path const& file) { return run("--dump-dom file://" + file.string()); }

  std::filesystem::path saveLog(std::vector<LoggerBase::Item> const& items) {
    LightweightString<wchar_t> const path = LogFiles::htmlPath(LightweightString<wchar_t>::fromUTF8(folder.string()));
    EXPECT_TRUE(LogFiles::saveHtml(items, path));
    return path.toUTF8().str();
  }
};

TEST_F(LogInBrowser, AScriptInTheFileWouldRunSoTheCheckCanSeeIt) {
  std::filesystem::path const control = folder / "control.html";
  std::ofstream(control) << "<pre>\n<script>document.body.innerHTML='RAN'</script>\n</pre>\n";
  EXPECT_NE(dumpDom(control).find("<body>RAN"), std::string::npos);
}

TEST_F(LogInBrowser, LogTextsWithMarkupShowAsTextAndRunNothing) {
  std::filesystem::path const file =
      saveLog({{L"<script>document.body.innerHTML='RAN'</script>", LoggerBase::kOutputPlain},
               {L"<img src=x onerror=\"document.body.innerHTML='RAN'\">", LoggerBase::kOutputError},
               {L"Tom & Jerry \"cut\" caf\u00e9", LoggerBase::kOutputWarning},
               {L"Pass 2", LoggerBase::kOutputStatusLine}});
  std::string const dom = dumpDom(file);
  ASSERT_NE(dom.find("<pre>"), std::string::npos) << dom;
  EXPECT_EQ(dom.find("<body>RAN"), std::string::npos) << dom;
  EXPECT_EQ(dom.find("<script"), std::string::npos) << dom;
  EXPECT_EQ(dom.find("<img"), std::string::npos) << dom;
  EXPECT_NE(dom.find("<p>&lt;script&gt;document.body.innerHTML='RAN'&lt;/script&gt;</p>"), std::string::npos) << dom;
  EXPECT_NE(dom.find("&lt;img src=x onerror=\"document.body.innerHTML='RAN'\"&gt;"), std::string::npos) << dom;
  EXPECT_NE(dom.find("Tom &amp; Jerry \"cut\" caf\xc3\xa9"), std::string::npos) << dom;
  EXPECT_NE(dom.find("<b>Pass 2</b>"), std::string::npos) << dom;
}

TEST_F(LogInBrowser, TheBrowserDrawsTheLogsText) {
  std::filesystem::path const file = saveLog({{L"Render finished", LoggerBase::kOutputPlain}});
  std::filesystem::path const shot = folder / "shot.png";
  run("--window-size=400,200 --screenshot=" + shot.string() + " file://" + file.string());
  ASSERT_TRUE(std::filesystem::exists(shot));
  Zo::Image::Surface const picture = Zo::Image::Surface::loadPNG(shot.string());
  ASSERT_EQ(picture.width(), 400);
  int dark = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) {
      Rgb const pixel = rgbOf(picture.pixel(x, y));
      if (pixel.r < 100 && pixel.g < 100 && pixel.b < 100)
        ++dark;
    }
  // The page is white; the words put some dark pixels on it.
  EXPECT_GT(dark, 50);
}

} // namespace
