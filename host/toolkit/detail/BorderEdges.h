#pragma once

#include <zowidgets/host/base/XY.h>
#include <zowidgets/host/toolkit/WidgetPosition.h>

class CanvasRenderer;
class Palette;

// The edges Glob::drawBorder leaves to others: the rounded and menu types,
// and the shadow any border may have. `size` is the widget's; the renderer's
// origin is at its bottom-left corner.
namespace BorderEdges {
// How far in from the widget's edge the border draws.
int reach(Border const& border);
void drawShapedEdge(CanvasRenderer& renderer, Border const& border, XY<int> size, Palette const& palette);
void drawShadow(CanvasRenderer& renderer, Border const& border, XY<int> size);
} // namespace BorderEdges
