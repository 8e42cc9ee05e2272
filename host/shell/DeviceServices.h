#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <memory>
#include <vector>

// The host's hardware device services: the editing console, the control
// surface and the device driver plug-ins. The application replaces the whole
// set with its drivers through setDeviceServices; until then the default,
// RecordingDeviceServices, drives no hardware: it records what was asked, in
// order, and reports the failed plug-ins it was told of (none at first), so
// that a program without hardware, or a test, sees what the interface did.
// User-interface thread only.
class ZO_API iDeviceServices {
public:
  virtual ~iDeviceServices() = default;
  // Starts the editing console anew, taking up a change of its setting.
  virtual void reinitConsole() = 0;
  virtual void initControlSurface() = 0;
  virtual void deInitControlSurface() = 0;
  // The names of the device driver plug-ins that could not be loaded.
  virtual std::vector<LightweightString<wchar_t>> getFailedPlugins() = 0;
};

class ZO_API RecordingDeviceServices : public iDeviceServices {
public:
  enum eRequest : int { kConsoleReinit = 0, kSurfaceInit = 1, kSurfaceDeInit = 2 };

  void reinitConsole() override { requests_.push_back(kConsoleReinit); }
  void initControlSurface() override { requests_.push_back(kSurfaceInit); }
  void deInitControlSurface() override { requests_.push_back(kSurfaceDeInit); }
  std::vector<LightweightString<wchar_t>> getFailedPlugins() override { return failedPlugins_; }

  std::vector<eRequest> const& requests() const noexcept { return requests_; }
  void setFailedPlugins(std::vector<LightweightString<wchar_t>> names) { failedPlugins_ = std::move(names); }
  // Forgets the requests and the failed plug-ins.
  void clear() {
    requests_.clear();
    failedPlugins_.clear();
  }

private:
  std::vector<eRequest> requests_;
  std::vector<LightweightString<wchar_t>> failedPlugins_;
};

// The services in use.
ZO_API iDeviceServices& deviceServices();
// Puts `services` in use; null puts the default back.
ZO_API void setDeviceServices(std::shared_ptr<iDeviceServices> services);
// The default services, whether or not they are in use.
ZO_API RecordingDeviceServices& defaultDeviceServices();

// The host's names for the same services, as the interface calls them.
ZO_API void console_reinit();

namespace MackieMCU {
// The control surface.
class ZO_API Manager {
public:
  static Manager& instance();
  void init();
  void deInit();

private:
  Manager() = default;
};
} // namespace MackieMCU

namespace ZoDeviceDriverManager {
ZO_API std::vector<LightweightString<wchar_t>> getFailedPlugins();
} // namespace ZoDeviceDriverManager
