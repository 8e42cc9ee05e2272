#pragma once

#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/toolkit/WidgetPosition.h>

class Glob;

// How the inspector's windows write what they know about a widget.
namespace GlobFacts {
using WString = LightweightString<wchar_t>;

WString typeName(Glob const& widget);
// width " x " height
WString sizeText(XY<int> size);
// x ", " y
WString pointText(XY<int> point);
WString yesNo(bool yes);
// The name of the border's style: one of the names of Border::eStyle, or
// "SunkenBorder" and "BorderType <n>" for the edge types no style uses.
WString borderName(Border const& border);
WString borderStyleName(int style);
// left, right, top, bottom
WString marginsText(Border const& border);
// The stamp written as IdStamp::asString writes it; the null stamp for any
// other text.
IdStamp stampFromText(WString const& text);
WString stampText(IdStamp const& stamp);
} // namespace GlobFacts
