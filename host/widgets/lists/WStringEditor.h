#pragma once

#include <zowidgets/host/widgets/lists/CellEditorBase.h>
#include <zowidgets/host/widgets/text/TextBox.h>

// The text editor of a table: a one-line text box over the cell, filled with
// the cell's text, all of it selected so that typing replaces it. Return in
// the box finishes the edit; the text goes to iTableAdaptor::storeFieldText.
class ZO_API WStringEditor : public CellEditorBase<TextBox> {
public:
  static constexpr char const* kEnteredMsg = "WStringEntered";

  Glob* getWidget(Glob* parent) override;
  int storeData(CellContext& context) const override;
  void initWidgetFromData(CellContext const& context, CellData const& data) override;
  bool hasChanged(CellContext const& context) const override;
  bool isResponsibleForMessage(LightweightString<char> const& message, Glob* sender) override;
  bool supportsTextSelection() const override { return true; }
  // The text in the box now; empty without a box.
  LightweightString<wchar_t> getText() const;

private:
  LightweightString<wchar_t> original_;
};
