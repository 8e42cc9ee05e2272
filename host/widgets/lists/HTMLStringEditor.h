#pragma once

#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/widgets/lists/ReadOnlyCellEditor.h>

// Cells of HTML (HTMLRenderer's subset), drawn on the cell's line. A click
// on a link sends the table's parent the message
// "<kLinkClickedMsg>=<link target>", the target in UTF-8; the pointer is a
// hand over links.
class ZO_API HTMLStringEditor : public ReadOnlyCellEditor {
public:
  static constexpr char const* kLinkClickedMsg = "HTMLLinkClicked";

  void drawField(CellContext& context, CellData const& data) override;
  bool handleEvent(CellContext const& context, CellData const& data, Event const& event) override;
  int contextCursor(CellContext const& context, CellData const& data, XY<int> const& point) const override;
  LightweightString<wchar_t> contextString(CellContext const& context, CellData const& data) const override;
  XY<int> measure(CellData const& data, Glib::FontDesc const& font) const override;

  // The link under a point of a cell (in the same coordinates as the
  // context's box); empty for none.
  static LightweightString<wchar_t> linkAt(CellContext const& context, CellData const& data, XY<int> point);
};
