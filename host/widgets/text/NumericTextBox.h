#pragma once

#include <zowidgets/host/widgets/text/TextBox.h>

// A text box for a number: only digits, a sign and a decimal point may be
// typed; what goes to the adaptor is kept inside the value range; Up and
// Down step the value by one.
//
// A fraction that comes from the data is shown rounded to the digits its
// range makes worth reading (three significant ones across the range; six
// decimals without one), as a dragged slider gives values such as
// 0.5416666666666666. The data keeps the exact value: until the user edits
// the box, Return, Up and Down work from it, not from the rounded text.
class ZO_API NumericTextBox : public TextBox {
public:
  using TextBox::InitArgs;

  explicit NumericTextBox(InitArgs const& args);
  char const* idstring() const override { return "NumericTextBox"; }

  // Committed values are clamped to [min, max]; equal bounds lift the limit.
  void setValueRange(double min, double max);
  // The text read as a number, in the range (0 for text that is no number);
  // the exact value while the box shows it rounded and unedited.
  double getValue() const;
  // Digits after the point that a fraction from the data is shown with.
  int shownDecimals() const;
  // The same for a box over [min, max].
  static int decimalsFor(double min, double max);
  // A text as long as the longest a fraction from the data in [min, max] is
  // shown as ("-24.88" for -24 to 12, as long as -23.88): what a box must
  // hold to show every value of the range whole.
  static LightweightString<wchar_t> longestTextFor(double min, double max);

  void setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) override;

protected:
  int handleKeyboardEvent(int key) override;
  void commit(bool force) override;

private:
  void step(double delta);

  double min_ = 0.0;
  double max_ = 0.0;
  // The value as the data gave it, and the text it is shown as rounded.
  LightweightString<wchar_t> exact_;
  LightweightString<wchar_t> roundedExact_;
};
