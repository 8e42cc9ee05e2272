#pragma once

#include <zowidgets/host/base/Export.h>

// Switches for the external control devices, remembered in the preferences
// ("HardwareConsoleEnabled", "HardwareMackieEnabled",
// "HardwareAdvancedScopesEnabled", all false until set). Each setter stores
// the choice first, then tells the device service: the console is started
// anew, the control surface is started or stopped; the scopes device needs
// nothing. The services are the host's (host/shell/DeviceServices.h).
class ZO_API UIHWDeviceManager {
public:
  UIHWDeviceManager() = delete;

  static bool getConsoleEnabled();
  static void setConsoleEnabled(bool enabled);
  static bool getMackieEnabled();
  static void setMackieEnabled(bool enabled);
  static bool getScopesEnabled();
  static void setScopesEnabled(bool enabled);

  // Tells the user, in a message, which device plug-ins could not be loaded;
  // does nothing when all were.
  static void reportFailedPlugins();
};
