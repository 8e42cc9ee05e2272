#include "PanelRender.h"

#include "RangeChecks.h"

#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cmath>

BuiltDescription buildDescription(LightweightString<wchar_t> const& text, PanelOptions const& options) {
  BuiltDescription result;
  JSON::ParseError error;
  Zo::Ptr<JSON::Element> const root = JSON::parse(text, error);
  if (!root) {
    result.error = error.describe();
    return result;
  }
  Zo::Ptr<JSON::Element> const entries = root->getChild(static_cast<unsigned short>(0));
  if (!entries) {
    result.error = "the description holds no list of rows: its first member must be an array of row objects";
    return result;
  }
  int const rowWidth = options.width > 0 ? static_cast<int>(std::lround(options.width * UifStd::getScale()))
                                         : 18 * UifStd::getRowHeight();
  unsigned short const count = UIBuilder::getNumParams(root);
  int const rowsHeight = count * (UifStd::getRowHeight() + UifStd::getRowGap());
  unsigned const standardWidgets = options.title.empty() ? 0u : unsigned(StandardPanel::kTitle);
  StandardPanel::InitArgs args(
      StandardPanel::calcPanelSize(XY<int>(rowWidth, rowsHeight), standardWidgets, StandardPanel::getDefaultBorder()));
  args.standardWidgets = standardWidgets;
  args.title = UIString(options.title);
  args.screenPosition = XY<int>(0, 0);
  auto* panel = new BuiltPanel(args);
  panel->setBuiltParams(UIBuilder::buildFromJSON(root, panel));
  result.warnings = rangeWarnings(root);
  panel->growToShowEveryRow();
  GlobManager::realize(panel);
  result.panel = panel;
  return result;
}
