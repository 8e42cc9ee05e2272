#include <zowidgets/host/widgets/text/NumericTextBox.h>

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/NumberText.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

namespace {

// Beyond this a fraction's digits are not worth rounding: its text is kept.
constexpr double kLargestRounded = 1e15;

LightweightString<wchar_t> format(double value) {
  // A whole number is written in its digits ("300000"), never in the
  // shorter "3e+05": a whole-number value cannot read that back (it took it
  // for 0), and a person reads digits more easily.
  if (std::isfinite(value) && value == std::trunc(value) && std::abs(value) < kLargestRounded)
    return LightweightString<wchar_t>(std::to_wstring(static_cast<long long>(value)).c_str());
  return DataConvert::convert<double, LightweightString<wchar_t>>(value);
}

// A number's text with a fraction or an exponent, and nothing else.
bool isFraction(LightweightString<wchar_t> const& text) {
  std::wstring_view const view = text.view();
  return view.find_first_of(L".eE") != std::wstring_view::npos &&
         view.find_first_not_of(L"+-.0123456789eE") == std::wstring_view::npos;
}

// How a value from the data is shown when it is a fraction worth rounding
// and rounding changes it; none otherwise.
std::optional<LightweightString<wchar_t>> roundedForShowing(LightweightString<wchar_t> const& value, int decimals) {
  if (!isFraction(value))
    return std::nullopt;
  double const number = DataConvert::convert<LightweightString<wchar_t>, double>(value);
  if (!std::isfinite(number) || std::abs(number) >= kLargestRounded)
    return std::nullopt;
  LightweightString<wchar_t> shown = Zo::WStringFromFloatTrimmed(number, decimals);
  if (shown == value)
    return std::nullopt;
  return shown;
}

} // namespace

NumericTextBox::NumericTextBox(InitArgs const& args) : TextBox(args) { setCharacters(L"+-.0123456789", kOnlyAllowed); }

void NumericTextBox::setValueRange(double min, double max) {
  min_ = min;
  max_ = max;
}

double NumericTextBox::getValue() const {
  bool const showsExactRounded = !exact_.empty() && !isModified() && getString() == roundedExact_;
  LightweightString<wchar_t> const text = showsExactRounded ? exact_ : getString();
  double value = DataConvert::convert<LightweightString<wchar_t>, double>(text);
  if (min_ != max_)
    DataConvert::constrain(value, min_, max_);
  return value;
}

int NumericTextBox::shownDecimals() const { return decimalsFor(min_, max_); }

int NumericTextBox::decimalsFor(double min, double max) {
  constexpr int kWithoutRange = 6;
  // A range this wide (a codec's option from minus to plus the largest
  // float) bounds nothing a user types: it counts as none.
  constexpr double kUnbounded = 1e9;
  double const span = std::abs(max - min);
  if (span == 0.0 || !(span < kUnbounded))
    return kWithoutRange;
  return std::clamp(static_cast<int>(std::ceil(3.0 - std::log10(span))), 0, kWithoutRange);
}

LightweightString<wchar_t> NumericTextBox::longestTextFor(double min, double max) {
  int const decimals = decimalsFor(min, max);
  LightweightString<wchar_t> longest;
  for (double end : {min, max}) {
    if (!std::isfinite(end))
      continue;
    // The end's whole digits and every decimal shown: a value just inside it.
    LightweightString<wchar_t> text = format(std::trunc(std::abs(end)));
    if (end < 0)
      text = LightweightString<wchar_t>(L"-") + text;
    if (decimals > 0) {
      text += L".";
      text += LightweightString<wchar_t>(std::wstring(static_cast<std::size_t>(decimals), L'8').c_str());
    }
    if (text.size() > longest.size())
      longest = text;
  }
  return longest;
}

void NumericTextBox::setNewWidgetValue(LightweightString<wchar_t>& value, eRedrawFlag redraw) {
  std::optional<LightweightString<wchar_t>> const shown = roundedForShowing(value, shownDecimals());
  exact_ = shown ? value : LightweightString<wchar_t>();
  roundedExact_ = shown ? *shown : LightweightString<wchar_t>();
  LightweightString<wchar_t> text = shown ? *shown : value;
  TextBox::setNewWidgetValue(text, redraw);
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
  // Send the number as the data will hold it, then show it as a value from
  // the data is shown, unless the data's answer has already done so.
  LightweightString<wchar_t> sent = format(getValue());
  setString(sent);
  TextBox::commit(true);
  if (getString() == sent)
    setNewWidgetValue(sent, kRedrawNow);
}
