#include <zowidgets/host/display/BackendChoice.h>
#include <zowidgets/host/headless/HeadlessScreen.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace {

// Sets or clears an environment variable for one test, restoring it after.
class ScopedEnvironment {
public:
  ScopedEnvironment(char const* name, char const* value) : name_(name) {
    if (char const* old = std::getenv(name))
      old_ = old;
    if (value)
      setenv(name, value, 1);
    else
      unsetenv(name);
  }
  ~ScopedEnvironment() {
    if (old_)
      setenv(name_, old_->c_str(), 1);
    else
      unsetenv(name_);
  }

private:
  char const* name_;
  std::optional<std::string> old_;
};

bool headlessInUse() { return dynamic_cast<HeadlessScreen*>(&screenBackend()) != nullptr; }

} // namespace

TEST(BackendChoice, TheHeadlessFlagKeepsTheHeadlessScreen) {
  ScopedEnvironment backend("ZOWIDGETS_BACKEND", "display");
  char const* argv[] = {"program", "--headless"};
  EXPECT_EQ(chooseScreenBackend(2, argv), ScreenBackendKind::headless);
  EXPECT_TRUE(headlessInUse());
}

TEST(BackendChoice, TheEnvironmentCanAskForTheHeadlessScreen) {
  ScopedEnvironment backend("ZOWIDGETS_BACKEND", "headless");
  char const* argv[] = {"program"};
  EXPECT_EQ(chooseScreenBackend(1, argv), ScreenBackendKind::headless);
  EXPECT_TRUE(headlessInUse());
}

TEST(BackendChoice, ADisplayThatCannotBeOpenedLeavesTheHeadlessScreen) {
  ScopedEnvironment display("DISPLAY", nullptr);
  ScopedEnvironment backend("ZOWIDGETS_BACKEND", nullptr);
  char const* argv[] = {"program", "--display"};
  testing::internal::CaptureStderr();
  EXPECT_EQ(chooseScreenBackend(2, argv), ScreenBackendKind::headless);
  EXPECT_NE(testing::internal::GetCapturedStderr().find("no display"), std::string::npos);
  EXPECT_TRUE(headlessInUse());
}
