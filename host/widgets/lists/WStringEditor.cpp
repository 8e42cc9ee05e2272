#include <zowidgets/host/widgets/lists/WStringEditor.h>

Glob* WStringEditor::getWidget(Glob* parent) {
  if (TextBox* live = liveWidget())
    return live;
  TextBox::InitArgs args(XY<int>(1, 1));
  args.setBorder(Border());
  auto* box = new TextBox(args);
  parent->addWidget(box);
  box->requestCallback(kEnteredMsg, parent, TextBoxEvent::kReturnPressed);
  box->setVisible(false);
  setWidget(box);
  return box;
}

void WStringEditor::initWidgetFromData(CellContext const& context, CellData const& data) {
  TextBox* box = liveWidget();
  if (!box)
    return;
  original_ = data.text.getString();
  box->setString(original_);
  box->setEditable(!data.readOnly);
  if (context.table && context.pos.x >= 0 && context.pos.x < context.table->numColumns())
    box->setAlignment(context.table->getColumn(context.pos.x).getAlignment());
  box->highlightAllText();
}

LightweightString<wchar_t> WStringEditor::getText() const {
  TextBox* box = liveWidget();
  return box ? box->getString() : LightweightString<wchar_t>();
}

bool WStringEditor::hasChanged(CellContext const& context) const {
  return CellEditorBase::hasChanged(context) || (liveWidget() && getText() != original_);
}

int WStringEditor::storeData(CellContext& context) const {
  if (!liveWidget() || !context.adaptor)
    return 0;
  return context.adaptor->storeFieldText(context, getText()) ? 1 : 0;
}

bool WStringEditor::isResponsibleForMessage(LightweightString<char> const& message, Glob* sender) {
  return message == LightweightString<char>(kEnteredMsg) && sender && sender == liveWidget();
}
