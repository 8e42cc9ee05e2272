#include <zowidgets/host/shell/OS.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using Zo::ShellMode;
using Zo::ShellRequest;

namespace {

using WString = LightweightString<wchar_t>;
using Kind = ShellRequest::Kind;

// OS() is process-wide: each test starts and ends headless with nothing
// recorded and an empty clipboard.
class ShellTest : public ::testing::Test {
protected:
  void SetUp() override { reset(); }
  void TearDown() override { reset(); }

  static void reset() {
    OS().setShellMode(ShellMode::headless);
    OS().clearRecordedShellRequests();
    OS().setClipboardText(WString());
  }
};

// A display backend's stand-in: keeps what it is handed.
class FakeBackend : public Zo::iShellBackend {
public:
  WString clipboardText() override { return clipboard; }
  void setClipboardText(WString const& text) override { clipboard = text; }
  bool perform(ShellRequest const& request) override {
    performed.push_back(request);
    return answer;
  }

  WString clipboard = L"from the system";
  std::vector<ShellRequest> performed;
  bool answer = true;
};

} // namespace

TEST_F(ShellTest, OSIsOneObject) { EXPECT_EQ(&OS(), &OS()); }

TEST_F(ShellTest, HeadlessRecordsRequestsInOrder) {
  EXPECT_EQ(OS().shellMode(), ShellMode::headless);
  EXPECT_TRUE(OS().open(L"https://example.org/help"));
  EXPECT_TRUE(OS().revealFiles({L"/media/a.mov", L"/media/b.mov"}));
  EXPECT_TRUE(OS().dragFiles({L"/media/a.mov"}));
  std::vector<ShellRequest> expected = {
      {Kind::open, {L"https://example.org/help"}},
      {Kind::reveal, {L"/media/a.mov", L"/media/b.mov"}},
      {Kind::drag, {L"/media/a.mov"}},
  };
  EXPECT_EQ(OS().recordedShellRequests(), expected);
  OS().clearRecordedShellRequests();
  EXPECT_TRUE(OS().recordedShellRequests().empty());
}

TEST_F(ShellTest, GlibNamesGoThroughOS) {
  EXPECT_TRUE(Glib::viewDocument(L"/logs/TaskLog.html"));
  EXPECT_TRUE(Glib::revealFiles({L"/media/clip.mov"}));
  EXPECT_TRUE(Glib::dragFilesToOS({L"/media/clip.mov", L"/media/clip.wav"}));
  std::vector<ShellRequest> expected = {
      {Kind::open, {L"/logs/TaskLog.html"}},
      {Kind::reveal, {L"/media/clip.mov"}},
      {Kind::drag, {L"/media/clip.mov", L"/media/clip.wav"}},
  };
  EXPECT_EQ(OS().recordedShellRequests(), expected);
}

TEST_F(ShellTest, EmptyTargetsAreDropped) {
  EXPECT_FALSE(OS().open(L""));
  EXPECT_FALSE(OS().revealFiles({}));
  EXPECT_FALSE(OS().dragFiles({L"", L""}));
  EXPECT_TRUE(OS().recordedShellRequests().empty());
  EXPECT_TRUE(OS().revealFiles({L"", L"/a", L""}));
  std::vector<ShellRequest> expected = {{Kind::reveal, {L"/a"}}};
  EXPECT_EQ(OS().recordedShellRequests(), expected);
}

TEST_F(ShellTest, HeadlessClipboardKeepsText) {
  EXPECT_TRUE(OS().clipboardText().empty());
  OS().setClipboardText(L"192.168.0.10");
  EXPECT_EQ(OS().clipboardText(), L"192.168.0.10");
  OS().setClipboardText(L"\u00e9t\u00e9");
  EXPECT_EQ(OS().clipboardText(), L"\u00e9t\u00e9");
}

TEST_F(ShellTest, CopyToClipboardPutsOneItemPerLine) {
  OS().copyToClipboard({L"/media/a.mov", L"/media/b.mov"});
  EXPECT_EQ(OS().clipboardText(), L"/media/a.mov\n/media/b.mov");
  OS().copyToClipboard({L"/only"});
  EXPECT_EQ(OS().clipboardText(), L"/only");
  OS().copyToClipboard({});
  EXPECT_TRUE(OS().clipboardText().empty());
}

TEST_F(ShellTest, InstalledBackendTakesOver) {
  auto backend = std::make_shared<FakeBackend>();
  OS().setClipboardText(L"headless text");
  OS().setShellBackend(backend);
  EXPECT_EQ(OS().shellMode(), ShellMode::desktop);

  EXPECT_EQ(OS().clipboardText(), L"from the system");
  OS().setClipboardText(L"copied");
  EXPECT_EQ(backend->clipboard, L"copied");

  EXPECT_TRUE(OS().open(L"/a.html"));
  backend->answer = false;
  EXPECT_FALSE(OS().revealFiles({L"/a.html"}));
  std::vector<ShellRequest> expected = {{Kind::open, {L"/a.html"}}, {Kind::reveal, {L"/a.html"}}};
  EXPECT_EQ(backend->performed, expected);
  EXPECT_TRUE(OS().recordedShellRequests().empty());
}

TEST_F(ShellTest, NullBackendGoesBackToHeadless) {
  auto backend = std::make_shared<FakeBackend>();
  OS().setShellBackend(backend);
  OS().setShellBackend(nullptr);
  EXPECT_EQ(OS().shellMode(), ShellMode::headless);
  EXPECT_TRUE(OS().open(L"/a.html"));
  EXPECT_TRUE(backend->performed.empty());
  EXPECT_EQ(OS().recordedShellRequests().size(), 1u);
}

TEST_F(ShellTest, DesktopModeInstallsABackend) {
  OS().setShellMode(ShellMode::desktop);
  EXPECT_EQ(OS().shellMode(), ShellMode::desktop);
  // The desktop backend's clipboard is its own, apart from the headless one.
  OS().setClipboardText(L"desktop text");
  EXPECT_EQ(OS().clipboardText(), L"desktop text");
  OS().setShellMode(ShellMode::headless);
  EXPECT_TRUE(OS().clipboardText().empty());
}
