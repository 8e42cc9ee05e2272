#include "PanelDump.h"

#include <zowidgets/builder/ChoiceParamHost.h>
#include <zowidgets/builder/HostWidget.h>
#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/colour/DropDownColourPickerButton.h>
#include <zowidgets/fonts/TitledFontChooserButton.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextBoxBase.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/values/binding/ValWidget.h>

#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace PanelDump {

void writeTree(JSON::Builder& out, Glob const& root) {
  out.add("class", root.idstring());
  if (!root.getName().empty())
    out.add("name", root.getName());
  out.add("x", root.getX());
  out.add("y", root.getY());
  out.add("w", root.width());
  out.add("h", root.height());
  out.add("visible", root.isVisible());
  out.add("active", root.isActive());
  if (root.getChildren().empty())
    return;
  out.startArray("children");
  for (Glob const* child : root.getChildren()) {
    out.startChild();
    writeTree(out, *child);
    out.end();
  }
  out.end();
}

namespace {

void writeRowValue(JSON::Builder& out, Glob* row) {
  if (auto* checkbox = dynamic_cast<Checkbox*>(row)) {
    out.add("kind", "bool");
    out.add("value", checkbox->getWidgetValue());
  } else if (auto* slider = dynamic_cast<SliderParamHost*>(row)) {
    out.add("kind", "slider");
    // The number box holds the exact value; over a wide range the slider's
    // thumb stands at the nearest of its steps.
    NumericTextBox* box = slider->getTextBox();
    out.add("value", box ? box->getValue() : slider->getSlider()->getPosition());
    if (box)
      out.add("text", box->getString());
  } else if (auto* choice = dynamic_cast<ChoiceParamHost*>(row)) {
    out.add("kind", "choice");
    out.add("value", choice->getWidgetValue());
    out.add("text", choice->getMenuButton()->getBtn().getSelectedItemNameW());
  } else if (auto* text = dynamic_cast<TextBoxBase*>(row)) {
    out.add("kind", "text");
    out.add("value", text->getString());
  } else if (auto* colour = dynamic_cast<TitledGlob<DropDownColourPickerButton>*>(row)) {
    out.add("kind", "colour");
    out.add("value", colour->getChild()->getColour().toText());
  } else if (auto* font = dynamic_cast<TitledFontChooserButton*>(row)) {
    out.add("kind", "font");
    out.add("value", font->getChild()->getSelectedFont().name);
  } else if (auto* file = dynamic_cast<ValWidget<LightweightString<wchar_t>>*>(row);
             file && std::string_view(row->idstring()) == "TitledFileChooserButton") {
    out.add("kind", "file");
    out.add("value", file->getWidgetValue());
  } else if (auto* label = dynamic_cast<TextLabel*>(row)) {
    out.add("kind", "label");
    out.add("value", label->getString().getString());
  } else {
    out.add("kind", row->idstring());
  }
}

} // namespace

namespace {

// The named rows in the order they were made: a walk of the tree, which
// holds each panel's children in that order (hidden rows included).
void collectRows(Glob* glob, std::map<Glob*, LightweightString<char>> const& names,
                 std::vector<std::pair<LightweightString<char>, Glob*>>& rows) {
  if (auto named = names.find(glob); named != names.end()) {
    rows.emplace_back(named->second, glob);
    return;
  }
  for (Glob* child : glob->getChildren())
    collectRows(child, names, rows);
}

} // namespace

void writeValues(JSON::Builder& out, Glob& root, UIBuilder::Params const& built) {
  std::map<Glob*, LightweightString<char>> names;
  for (auto const& [id, host] : built.getWidgets())
    names.emplace(host, id);
  std::vector<std::pair<LightweightString<char>, Glob*>> rows;
  collectRows(&root, names, rows);
  for (auto const& [id, host] : rows) {
    out.startChild();
    out.add("name", id);
    auto* row = dynamic_cast<UIBuilder::HostWidgetBase*>(host);
    if (row && row->getChild())
      writeRowValue(out, row->getChild());
    out.add("visible", host->isVisible());
    out.add("active", host->isActive());
    out.end();
  }
}

} // namespace PanelDump
