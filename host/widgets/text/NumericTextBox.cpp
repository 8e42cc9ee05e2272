#include <zowidgets/host/widgets/text/NumericTextBox.h>

#include <zowidgets/host/base/DataConvert.h>

namespace {

LightweightString<wchar_t> format(double value) {
  return DataConvert::convert<double, LightweightString<wchar_t>>(value);
}

} // namespace

NumericTextBox::NumericTextBox(InitArgs const& args) : TextBox(args) { setCharacters(L"+-.0123456789", kOnlyAllowed); }

void NumericTextBox::setValueRange(double min, double max) {
  min_ = min;
  max_ = max;
}

double NumericTextBox::getValue() const {
  double value = DataConvert::convert<LightweightString<wchar_t>, double>(getString());
  if (min_ != max_)
    DataConvert::constrain(value, min_, max_);
  return value;
}

int NumericTextBox::handleKeyboardEvent(int key) {
  switch (key & ~kKeyModifierMask) {
  case kKeyUp:
    step(1.0);
    return 1;
  case kKeyDown:
    step(-1.0);
    return 1;
  default:
    return TextBox::handleKeyboardEvent(key);
  }
}

void NumericTextBox::step(double delta) {
  if (!isEditable())
    return;
  double value = getValue() + delta;
  if (min_ != max_)
    DataConvert::constrain(value, min_, max_);
  setString(format(value));
  textEdited();
  commit(true);
}

void NumericTextBox::commit(bool force) {
  if (!force && !isModified())
    return;
  // Show what is sent: the number as the data will hold it.
  setString(format(getValue()));
  TextBox::commit(true);
}
