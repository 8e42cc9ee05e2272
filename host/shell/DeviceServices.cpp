#include <zowidgets/host/shell/DeviceServices.h>

namespace {

std::shared_ptr<iDeviceServices>& replacement() {
  static std::shared_ptr<iDeviceServices> services;
  return services;
}

} // namespace

RecordingDeviceServices& defaultDeviceServices() {
  static RecordingDeviceServices services;
  return services;
}

iDeviceServices& deviceServices() {
  if (std::shared_ptr<iDeviceServices> const& services = replacement())
    return *services;
  return defaultDeviceServices();
}

void setDeviceServices(std::shared_ptr<iDeviceServices> services) { replacement() = std::move(services); }

void console_reinit() { deviceServices().reinitConsole(); }

MackieMCU::Manager& MackieMCU::Manager::instance() {
  static Manager manager;
  return manager;
}

void MackieMCU::Manager::init() { deviceServices().initControlSurface(); }

void MackieMCU::Manager::deInit() { deviceServices().deInitControlSurface(); }

std::vector<LightweightString<wchar_t>> ZoDeviceDriverManager::getFailedPlugins() {
  return deviceServices().getFailedPlugins();
}
