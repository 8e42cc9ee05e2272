#include "support/WidgetTestSupport.h"

#include <zowidgets/editor/UIHWDeviceManager.h>
#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/shell/DeviceServices.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/widgets/panels/Message.h>

#include <memory>
#include <string>
#include <vector>

namespace {

// Notes each request with the three preferences as they stand when it
// comes, so a test sees that the setting was stored before the service was
// asked.
class WitnessServices : public iDeviceServices {
public:
  struct Request {
    std::string what;
    bool console, mackie, scopes;
    friend bool operator==(Request const&, Request const&) = default;
  };
  void reinitConsole() override { note("console_reinit"); }
  void initControlSurface() override { note("init"); }
  void deInitControlSurface() override { note("deInit"); }
  std::vector<LightweightString<wchar_t>> getFailedPlugins() override { return {}; }
  std::vector<Request> requests;

private:
  void note(std::string what) {
    requests.push_back({std::move(what), UIHWDeviceManager::getConsoleEnabled(), UIHWDeviceManager::getMackieEnabled(),
                        UIHWDeviceManager::getScopesEnabled()});
  }
};

class UIHWDeviceManagerTest : public HeadlessScreenTest {
protected:
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    setDeviceServices(witness);
  }
  std::shared_ptr<WitnessServices> witness = std::make_shared<WitnessServices>();
};

using Request = WitnessServices::Request;

TEST_F(UIHWDeviceManagerTest, EverySwitchIsOffUntilSet) {
  EXPECT_FALSE(UIHWDeviceManager::getConsoleEnabled());
  EXPECT_FALSE(UIHWDeviceManager::getMackieEnabled());
  EXPECT_FALSE(UIHWDeviceManager::getScopesEnabled());
}

TEST_F(UIHWDeviceManagerTest, TheConsoleIsStoredThenStartedAnew) {
  UIHWDeviceManager::setConsoleEnabled(true);
  EXPECT_TRUE(prefs().getPreference("HardwareConsoleEnabled", false));
  UIHWDeviceManager::setConsoleEnabled(false);
  EXPECT_EQ(witness->requests,
            (std::vector<Request>{{"console_reinit", true, false, false}, {"console_reinit", false, false, false}}));
}

TEST_F(UIHWDeviceManagerTest, TheSurfaceIsStoredThenStartedOrStopped) {
  UIHWDeviceManager::setMackieEnabled(true);
  EXPECT_TRUE(prefs().getPreference("HardwareMackieEnabled", false));
  UIHWDeviceManager::setMackieEnabled(false);
  EXPECT_EQ(witness->requests, (std::vector<Request>{{"init", false, true, false}, {"deInit", false, false, false}}));
}

TEST_F(UIHWDeviceManagerTest, TheScopesAreStoredWithNothingElse) {
  UIHWDeviceManager::setScopesEnabled(true);
  EXPECT_TRUE(UIHWDeviceManager::getScopesEnabled());
  EXPECT_TRUE(prefs().getPreference("HardwareAdvancedScopesEnabled", false));
  UIHWDeviceManager::setScopesEnabled(false);
  EXPECT_FALSE(UIHWDeviceManager::getScopesEnabled());
  EXPECT_TRUE(witness->requests.empty());
}

TEST_F(UIHWDeviceManagerTest, TheDefaultServicesHearTheSwitches) {
  setDeviceServices(nullptr);
  UIHWDeviceManager::setMackieEnabled(true);
  UIHWDeviceManager::setConsoleEnabled(true);
  EXPECT_EQ(defaultDeviceServices().requests(),
            (std::vector<RecordingDeviceServices::eRequest>{RecordingDeviceServices::kSurfaceInit,
                                                            RecordingDeviceServices::kConsoleReinit}));
}

std::vector<Message*> openMessages() {
  std::vector<Message*> found;
  for (Glob* window : GlobManager::topLevelWindows())
    if (auto* message = dynamic_cast<Message*>(window); message && !GlobManager::isDeletionPending(message))
      found.push_back(message);
  return found;
}

TEST_F(UIHWDeviceManagerTest, NoFailedPluginsShowNothing) {
  setDeviceServices(nullptr);
  UIHWDeviceManager::reportFailedPlugins();
  EXPECT_TRUE(openMessages().empty());
}

TEST_F(UIHWDeviceManagerTest, FailedPluginsAreNamedInAMessage) {
  setDeviceServices(nullptr);
  defaultDeviceServices().setFailedPlugins({L"Jog wheel", L"Colour panel", L"Scope"});
  UIHWDeviceManager::reportFailedPlugins();
  std::vector<Message*> const messages = openMessages();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages.front()->getText().str(), resourceStrW(11391).str() + L"\nJog wheel, Colour panel, Scope");
  EXPECT_EQ(resourceStrW(11391).str(), L"These device plug-ins could not be loaded:");
}

} // namespace
