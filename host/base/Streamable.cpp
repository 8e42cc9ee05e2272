#include <zowidgets/host/base/Streamable.h>

LightweightString<char> Streamable::STRM_L_Streamable_buildHierarchyName(LightweightString<char> const& derived) {
  return derived + "/" + kPrintableTypeName;
}
