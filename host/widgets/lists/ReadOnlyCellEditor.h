#pragma once

#include <zowidgets/host/widgets/lists/TableCellEditor.h>

// The editor of cells that are only shown: no widget, nothing to store
// (which counts as success), a plain text drawing. The base of editors that
// draw something richer but never edit.
class ZO_API ReadOnlyCellEditor : public TableWidget::iCellEditor {
public:
  Glob* getWidget(Glob*) override { return nullptr; }
  void releaseWidget() override {}
  int storeData(CellContext&) const override { return 1; }
  void initWidgetFromData(CellContext const&, CellData const&) override {}
  bool hasChanged(CellContext const&) const override { return false; }
  void clearChanged() override {}
  void hide() override {}
  bool hasFocus() const override { return false; }
};
