// Built against an installed zowidgets; prints a line that CheckInstall.cmake
// compares, so both headers and exported symbols are exercised.
#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/zowidgets.h>

#include <iostream>

int main() {
  LightweightString<wchar_t> name = toWide("zowidgets");
  name += L" installed";
  IdStamp first;
  IdStamp second;
  if (!first.valid() || first == second || IdStamp::null().valid())
    return 1;
  ColourData azure(0.0, 0.5, 1.0);
  std::cout << toNarrow(name) << ' ' << IdStamp(1, 2, 3).asString() << " hue " << azure.getHue() << '\n';
  return 0;
}
