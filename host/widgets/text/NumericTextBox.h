#pragma once

#include <zowidgets/host/widgets/text/TextBox.h>

// A text box for a number: only digits, a sign and a decimal point may be
// typed; what goes to the adaptor is kept inside the value range; Up and
// Down step the value by one.
class ZO_API NumericTextBox : public TextBox {
public:
  using TextBox::InitArgs;

  explicit NumericTextBox(InitArgs const& args);
  char const* idstring() const override { return "NumericTextBox"; }

  // Committed values are clamped to [min, max]; equal bounds lift the limit.
  void setValueRange(double min, double max);
  // The text read as a number, in the range (0 for text that is no number).
  double getValue() const;

protected:
  int handleKeyboardEvent(int key) override;
  void commit(bool force) override;

private:
  void step(double delta);

  double min_ = 0.0;
  double max_ = 0.0;
};
