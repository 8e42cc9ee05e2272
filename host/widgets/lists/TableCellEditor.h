#pragma once

#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/widgets/lists/TableWidget.h>

// How one field type of a table is drawn and edited. The table owns one
// editor per type and moves its single widget from cell to cell: getWidget
// makes it, initWidgetFromData fills it for a cell, storeData writes it back
// through the adaptor, hide puts it away. An editor that never edits gives
// no widget.
class ZO_API TableWidget::iCellEditor {
public:
  using CellContext = iTableAdaptor::CellContext;
  using CellData = iTableAdaptor::CellData;

  virtual ~iCellEditor() = default;

  // The editing widget, made on first call and added to `parent`; null for
  // a type that is never edited.
  virtual Glob* getWidget(Glob* parent) = 0;
  // Forgets the widget without deleting it: its parent owns it.
  virtual void releaseWidget() = 0;
  // Writes the edited value through the context's adaptor; the number of
  // rows written.
  virtual int storeData(CellContext& context) const = 0;
  virtual void initWidgetFromData(CellContext const& context, CellData const& data) = 0;
  virtual bool hasChanged(CellContext const& context) const = 0;
  virtual void clearChanged() = 0;
  virtual void hide() = 0;
  // Drops whatever the last edit left behind.
  virtual void reset() {}
  // Whether a message from a widget is this editor's news of a finished
  // edit (Return in its box, a choice in its menu).
  virtual bool isResponsibleForMessage(LightweightString<char> const&, Glob*) { return false; }
  // Draws a cell that is not being edited: its text on one line, cut at the
  // cell's edges.
  virtual void drawField(CellContext& context, CellData const& data);
  // An event over a cell not being edited; true when the editor used it.
  virtual bool handleEvent(CellContext const&, CellData const&, Event const&) { return false; }
  virtual bool hasFocus() const = 0;
  virtual bool supportsTextSelection() const { return false; }
  // The pointer's shape over a point of a cell (an eCursorCode).
  virtual int contextCursor(CellContext const& context, CellData const& data, XY<int> const& point) const;
  // The cell's text as a reader would copy it.
  virtual LightweightString<wchar_t> contextString(CellContext const&, CellData const& data) const {
    return data.text.getString();
  }
  // The size the cell's content needs, margins included.
  virtual XY<int> measure(CellData const& data, Glib::FontDesc const& font) const;

  // The cell's text box: the cell less its margins and left offset.
  static Zo::Box<double> textBox(CellContext const& context, CellData const& data);
  // The font a cell is drawn in.
  static Glib::FontDesc fontOf(CellData const& data);
};
