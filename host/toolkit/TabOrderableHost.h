#pragma once

#include <zowidgets/host/base/Export.h>

#include <vector>

class Glob;
using TabOrderable = Glob;

// A widget made of several parts that take the keyboard focus. It keeps no
// tab order of its own, which would hold Tab inside it: its owner asks for
// the parts and puts them in the owner's order, where Tab passes through
// them to the owner's other widgets.
class ZO_API TabOrderableHost {
public:
  virtual ~TabOrderableHost() = default;
  // Appends the parts, in the order Tab visits them.
  virtual void getTabOrderables(std::vector<TabOrderable*>& into) = 0;
};
