#pragma once

#include <zowidgets/host/widgets/lists/TableCellEditor.h>

// The common half of an editor that edits in one widget of type W: it keeps
// the widget (and checks it is still alive before use), hides it, hands it
// events, and keeps the changed flag. A subclass makes the widget and moves
// values between it and the model.
template <class W> class CellEditorBase : public TableWidget::iCellEditor {
public:
  void releaseWidget() override { widget_ = nullptr; }
  bool hasChanged(CellContext const&) const override { return changed_; }
  void clearChanged() override { changed_ = false; }
  void hide() override {
    if (W* widget = liveWidget())
      widget->setVisible(false);
  }
  bool handleEvent(CellContext const&, CellData const&, Event const& event) override {
    W* widget = liveWidget();
    return widget && widget->isVisible() && widget->react(event) != 0;
  }
  bool hasFocus() const override {
    W* widget = liveWidget();
    return widget && get_kbd_focus() == widget;
  }

protected:
  // The widget, or null once it is gone (its parent may have deleted it).
  W* liveWidget() const { return widget_ && is_good_glob_ptr(widget_) ? widget_ : nullptr; }
  void setWidget(W* widget) { widget_ = widget; }
  void markChanged() { changed_ = true; }

private:
  W* widget_ = nullptr;
  bool changed_ = false;
};
