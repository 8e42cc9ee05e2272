#include <zowidgets/editor/UIHWDeviceManager.h>

#include <zowidgets/host/base/ResourceStrings.h>
#include <zowidgets/host/shell/DeviceServices.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/widgets/panels/Message.h>

#include <string>

namespace {

constexpr char const* kConsoleKey = "HardwareConsoleEnabled";
constexpr char const* kMackieKey = "HardwareMackieEnabled";
constexpr char const* kScopesKey = "HardwareAdvancedScopesEnabled";
constexpr int kFailedPluginsIntro = 11391;

} // namespace

bool UIHWDeviceManager::getConsoleEnabled() { return prefs().getPreference(kConsoleKey, false); }

void UIHWDeviceManager::setConsoleEnabled(bool enabled) {
  prefs().setPreference(kConsoleKey, enabled);
  console_reinit();
}

bool UIHWDeviceManager::getMackieEnabled() { return prefs().getPreference(kMackieKey, false); }

void UIHWDeviceManager::setMackieEnabled(bool enabled) {
  prefs().setPreference(kMackieKey, enabled);
  if (enabled)
    MackieMCU::Manager::instance().init();
  else
    MackieMCU::Manager::instance().deInit();
}

bool UIHWDeviceManager::getScopesEnabled() { return prefs().getPreference(kScopesKey, false); }

void UIHWDeviceManager::setScopesEnabled(bool enabled) { prefs().setPreference(kScopesKey, enabled); }

void UIHWDeviceManager::reportFailedPlugins() {
  std::vector<LightweightString<wchar_t>> const failed = ZoDeviceDriverManager::getFailedPlugins();
  if (failed.empty())
    return;
  std::wstring names;
  for (LightweightString<wchar_t> const& name : failed) {
    if (!names.empty())
      names += L", ";
    names += name.str();
  }
  makeMessage(UIString(LightweightString<wchar_t>(resourceStrW(kFailedPluginsIntro).str() + L"\n" + names)));
}
