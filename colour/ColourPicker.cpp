#include <zowidgets/colour/ColourPicker.h>

#include <zowidgets/colour/ColourPickerSuffixBox.h>
#include <zowidgets/colour/ColourSliderAdaptors.h>
#include <zowidgets/colour/ColourTextAdaptors.h>
#include <zowidgets/colour/ComponentTextBox.h>
#include <zowidgets/colour/EyeDropper.h>
#include <zowidgets/colour/HSColourWheel.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/host/widgets/panels/WidgetGroup.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>
#include <zowidgets/host/widgets/values/Slider.h>

namespace {

using WString = LightweightString<wchar_t>;
using TextAdaptor = Zo::Ptr<ValAdaptorBase<WString>>;
using SliderAdaptor = Zo::Ptr<ValAdaptorBase<double>>;

// A raised edge with a widget gap inside it.
Border pickerBorder() { return StandardPanel::getDefaultBorder(); }

int userWidth() { return UifStd::getRowHeight() * 10; }

int rgbGroupHeight() { return WidgetGroupEx::calcHeightForRows(4, UifStd::getRowHeight(), UifStd::getRowGap(), 1); }

int alphaGroupHeight() { return WidgetGroupEx::calcHeightForRows(1, UifStd::getRowHeight(), UifStd::getRowGap(), 1); }

Colour const kNeutralSliderColour(0.4, 0.4, 0.4);

ComponentTextBox::InitArgs boxArgs(UIString const& title) {
  // The legend takes a row's width; the field the rest.
  int const row = UifStd::getRowHeight();
  ComponentTextBox::InitArgs args(GlobCreationInfo(XY<int>(ColourPicker::calcTextBoxWidth(), row)));
  args.title = title;
  args.titleWidth = row;
  return args;
}

ComponentTextBox* addBox(Glob& group, UIString const& title, WidgetPosition const& where) {
  return group.createChild<ComponentTextBox>(boxArgs(title), where);
}

// Hue, saturation and value boxes carry their unit after the field.
ComponentTextBox* addSuffixBox(Glob& group, UIString const& title, LightweightString<wchar_t> const& suffix,
                               WidgetPosition const& where) {
  ColourPickerSuffixBox::InitArgs args(boxArgs(title));
  args.size.x += ColourPickerSuffixBox::suffixStripWidth(); // the field as wide as the others
  args.suffix = suffix;
  return group.createChild<ColourPickerSuffixBox>(args, where);
}

} // namespace

ColourPicker::InitArgs::InitArgs(unsigned flags, ColourData const& colour)
    : GlobCreationInfo(calcSize(flags)), flags(flags), colour(colour) {
  setBorder(pickerBorder());
}

void ColourPicker::Server::notifyValChanged(DataChangeType type) {
  if (!quiet_)
    ValServer<ColourData>::notifyValChanged(type);
}

void ColourPicker::Server::assignQuietly(ColourData const& colour) {
  quiet_ = true;
  updateAndNotify(colour);
  quiet_ = false;
}

ColourPicker::ColourPicker(InitArgs const& args)
    : StandardPanel(args), Broadcaster<ColourPickerEvent>(args.callback), server_(args.colour),
      openingColour_(args.colour), flags_(args.flags) {
  init();
  setDataAdaptor(args.dataAdaptor);
}

ColourPicker::ColourPicker(Palette const& palette, unsigned flags)
    : StandardPanel(GlobCreationInfo(calcSize(flags)).setPalette(palette).setBorder(pickerBorder())), flags_(flags) {
  server_.updateAndNotify(ColourData(1.0, 1.0, 1.0, ColourSpace::HSV, (flags & kAlpha) ? 1.0 : 0.0));
  init();
}

XY<int> ColourPicker::calcSize(unsigned flags) {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getWidgetGap();
  int height = rgbGroupHeight() + gap * 2 + calcHSVGroupHeight() + gap;
  if (flags & kAlpha)
    height += alphaGroupHeight();
  return StandardPanel::calcPanelSize(XY<int>(row * 10, height), 0, pickerBorder());
}

int ColourPicker::calcColourWheelSize() { return UifStd::getRowHeight() * 4; }

int ColourPicker::calcHSVGroupHeight() {
  auto const row = static_cast<unsigned short>(UifStd::getRowHeight());
  auto const gap = static_cast<unsigned short>(UifStd::getWidgetGap());
  return row * 4 + row + static_cast<unsigned short>((gap * 3 + row) / 2);
}

int ColourPicker::calcTextBoxWidth() { return Button::calcWidth(UIString(L"R 255.00%")); }

int ColourPicker::calcSliderWidth() const {
  int const groupWidth = rgbGroup_ ? rgbGroup_->getUserArea().width() : userWidth() - WidgetGroup::childXOffset();
  return groupWidth - (calcTextBoxWidth() + UifStd::getWidgetGap());
}

ColourData ColourPicker::getColour() const { return server_.get(); }

void ColourPicker::setColour(ColourData const& colour) { server_.assignQuietly(colour); }

Colour ColourPicker::getSliderColour(ColourData::ComponentID component) {
  switch (component) {
  case ColourData::kComponent0:
    return Colour(1.0, 0.0, 0.0);
  case ColourData::kComponent1:
    return Colour(0.0, 1.0, 0.0);
  case ColourData::kComponent2:
    return Colour(0.2, 0.3, 1.0);
  default:
    return Colour(0.7, 0.7, 0.7);
  }
}

UIString ColourPicker::getDisplayName(ColourData::ComponentID component) {
  static wchar_t const* const names[] = {L"R", L"G", L"B", L"A"};
  return UIString(names[component >= 0 && component <= 3 ? component : 3]);
}

void ColourPicker::init() {
  Drawable::Suspender holdRedraws;
  setResizable(false);
  setPersistable(false);
  addRGBRows();
  addHSLControls();
  if (flags_ & kAlpha)
    addAlphaRow();
  addEyeDropper();
  hexBox_->setCharacters(L"0123456789ABCDEFabcdef", TextBoxBase::kOnlyAllowed);
  hexBox_->setSizeLimit(6);
  hexBox_->setDataAdaptor(TextAdaptor(new HexColourAdaptor(&server_)));
  for (int component = 0; component < 3; ++component)
    hsvBoxes_[component]->setDataAdaptor(
        TextAdaptor(new ColourComponentAdaptor(component, ColourSpace::HSV, &server_)));
  lightnessSlider_->setDataAdaptor(SliderAdaptor(new LuminanceAdaptor(&server_)));
  wheel_->setDataAdaptor(Zo::Ptr<ValAdaptorBase<ColourData>>(new ValAdaptor<ColourData, ColourData>(&server_)));
  registerWith(&server_);
}

// Sliders end level with one another whatever box they follow.
Slider* ColourPicker::addSlider(Glob& group, Colour const& colour, Glob& beside) {
  int const extraBoxWidth = beside.width() - calcTextBoxWidth();
  Slider::InitArgs args(GlobCreationInfo(XY<int>(calcSliderWidth() - extraBoxWidth, UifStd::getRowHeight())));
  args.thumbColour = colour;
  return group.createChild<Slider>(args, Glob::RightOf(UifStd::getWidgetGap(), &beside, kAlignEnd));
}

void ColourPicker::addRGBRows() {
  int const gap = UifStd::getWidgetGap();
  WidgetGroup2::InitArgs args(XY<int>(getUserArea().width(), rgbGroupHeight()));
  args.title = UIString(L"RGB");
  rgbGroup_ = createChild<WidgetGroup2>(args, UserTopLeft(0, 0));
  Glob* above = nullptr;
  for (int component = 0; component < 3; ++component) {
    auto const id = static_cast<ColourData::ComponentID>(component);
    ComponentTextBox* box = addBox(*rgbGroup_, getDisplayName(id), above ? Below(gap, above) : UserTopLeft(0, 0));
    Slider* slider = addSlider(*rgbGroup_, getSliderColour(id), *box);
    slider->setDataAdaptor(SliderAdaptor(new RGBComponentAdaptor(component, &server_)));
    box->setDataAdaptor(TextAdaptor(new ColourComponentAdaptor(component, ColourSpace::RGB, &server_)));
    tabOrder().addTabStopsFrom(*box);
    rgbBoxes_[component] = box;
    rgbSliders_[component] = slider;
    above = box;
  }
  hexBox_ = addBox(*rgbGroup_, UIString(L"#"), Below(gap, above));
}

void ColourPicker::addHSLControls() {
  int const gap = UifStd::getWidgetGap();
  WidgetGroup2::InitArgs args(XY<int>(getUserArea().width(), calcHSVGroupHeight()));
  args.title = UIString(L"HSL");
  hslGroup_ = createChild<WidgetGroup2>(args, Below(UifStd::getRowGap(), rgbGroup_));
  hsvBoxes_[2] = addSuffixBox(*hslGroup_, UIString(L"L"), L"%", UserBottomLeft(0, 0));
  hsvBoxes_[1] = addSuffixBox(*hslGroup_, UIString(L"S"), L"%", Above(gap, hsvBoxes_[2]));
  hsvBoxes_[0] = addSuffixBox(*hslGroup_, UIString(L"H"), getDegreesString(), Above(gap, hsvBoxes_[1]));
  lightnessSlider_ = addSlider(*hslGroup_, kNeutralSliderColour, *hsvBoxes_[2]);
  int const wheelSize = calcColourWheelSize();
  wheel_ = hslGroup_->createChild<HSColourWheel>(
      HSColourWheel::InitArgs(GlobCreationInfo(XY<int>(wheelSize, wheelSize))), Above(0, lightnessSlider_, kAlignEnd));
  tabOrder().addTabStopsFrom(*hexBox_);
  for (int component = 0; component < 3; ++component)
    tabOrder().addTabStopsFrom(*hsvBoxes_[component]);
}

void ColourPicker::addAlphaRow() {
  WidgetGroup2::InitArgs args(XY<int>(getUserArea().width(), alphaGroupHeight()));
  args.title = UIString(L"Alpha");
  alphaGroup_ = createChild<WidgetGroup2>(args, Below(UifStd::getRowGap(), hslGroup_));
  alphaBox_ = addBox(*alphaGroup_, getDisplayName(ColourData::kAlpha), UserTopLeft(0, 0));
  alphaSlider_ = addSlider(*alphaGroup_, kNeutralSliderColour, *alphaBox_);
  alphaSlider_->setDataAdaptor(SliderAdaptor(new AlphaSliderAdaptor(&server_)));
  alphaBox_->setDataAdaptor(TextAdaptor(new AlphaTextAdaptor(&server_)));
  tabOrder().addTabStopsFrom(*alphaBox_);
}

// The dropper sends its samples to its parent, so it is the panel's own
// child, laid over the free end of the hex row.
void ColourPicker::addEyeDropper() {
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getWidgetGap();
  int const hexRowTop = WidgetGroup::titleBandHeight() + 3 * (row + gap);
  eyeDropper_ = createChild<colourEyeDropper>(colourEyeDropper::InitArgs(row, row), UserTopRight(gap, hexRowTop));
}

ComponentTextBox* ColourPicker::getComponentBox(ColourData::ComponentID component) const {
  if (component == ColourData::kAlpha)
    return alphaBox_;
  return component >= 0 && component < 3 ? rgbBoxes_[component] : nullptr;
}

Slider* ColourPicker::getComponentSlider(ColourData::ComponentID component) const {
  if (component == ColourData::kAlpha)
    return alphaSlider_;
  return component >= 0 && component < 3 ? rgbSliders_[component] : nullptr;
}

ComponentTextBox* ColourPicker::getHueBox(int hsvComponent) const {
  return hsvComponent >= 0 && hsvComponent < 3 ? hsvBoxes_[hsvComponent] : nullptr;
}

void ColourPicker::drawCurrent() { wheel_->update(); }

void ColourPicker::drawBars() {
  if (flags_ & kHueControls) {
    lightnessSlider_->invalidate();
    if (alphaSlider_)
      alphaSlider_->invalidate();
  }
  if (flags_ & kRGBControls)
    for (Slider* slider : rgbSliders_)
      slider->invalidate();
}

void ColourPicker::setNewWidgetValue(ColourData& colour, eRedrawFlag redraw) {
  if (writingOutward_ != 0 || colour == server_.get())
    return;
  ++writingOutward_;
  server_.updateAndNotify(colour);
  --writingOutward_;
  if (redraw == kRedrawNow)
    drawCurrent();
}

void ColourPicker::valChangedNtfy() {
  if (writingOutward_ != 0)
    return;
  drawCurrent();
  setColour();
}

int ColourPicker::handleMessageEvent(LightweightString<char> const& message, Glob* sender) {
  if (message != DropDownHostBase::kEscapedMsg)
    return StandardPanel::handleMessageEvent(message, sender);
  if (!(server_.get() == openingColour_))
    server_.updateAndNotify(openingColour_);
  return 1;
}

void ColourPicker::setColour() {
  ColourData const colour = server_.get();
  ++writingOutward_;
  requestSetNewDataValue(colour, kDataChangeAll);
  --writingOutward_;
  broadcast(ColourPickerEvent{ColourPickerEvent::kColourChanged, colour});
}

void ColourPicker::setActive(bool active, eRedrawFlag redraw) {
  StandardPanel::setActive(active, redraw);
  applyActivity(active);
}

void ColourPicker::setEnabledState(bool enabled) {
  if (enabled == isActive())
    return;
  setActive(enabled, kRedrawNow);
}

void ColourPicker::applyActivity(bool active) {
  if (flags_ & kHueControls) {
    for (ComponentTextBox* box : hsvBoxes_)
      box->setActive(active, kRedrawNow);
    wheel_->setEnabledState(active);
    lightnessSlider_->setActive(false, kRedrawNow);
  }
  if (alphaGroup_) {
    alphaBox_->setActive(active, kRedrawNow);
    alphaSlider_->setActive(active, kRedrawNow);
  }
  if (flags_ & kRGBControls)
    for (int component = 0; component < 3; ++component) {
      rgbBoxes_[component]->setActive(active, kRedrawNow);
      rgbSliders_[component]->setActive(active, kRedrawNow);
    }
  eyeDropper_->setActive(active, kRedrawNow);
  if (flags_ & kUpdateWheel)
    drawCurrent();
}

int ColourPicker::react(Event const& event) {
  if (event.isMessage() && event.message.startsWith(ColEyeDropBase::kMessagePrefix)) {
    applyEyeDropperSample(event.message);
    return 1;
  }
  return StandardPanel::react(event);
}

// A sample is opaque: the screen has no alpha to offer. A message without
// numbers (a range sample) leaves hue, saturation and value as they are.
void ColourPicker::applyEyeDropperSample(LightweightString<char> const& message) {
  ColourData const current = server_.get();
  double hue = current.getHue();
  double saturation = current.getSaturation();
  double value = current.getValue() / 255.0;
  if (ColEyeDropBase::parse(message.c_str(), hue, saturation, value) != 0)
    return;
  server_.updateAndNotify(ColourData(hue, saturation, 255.0 * value, ColourSpace::HSV, 1.0));
}
