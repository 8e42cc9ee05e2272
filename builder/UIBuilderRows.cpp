#include <zowidgets/builder/ChoiceParamHost.h>
#include <zowidgets/builder/HostWidget.h>
#include <zowidgets/builder/SliderParamHost.h>
#include <zowidgets/builder/detail/ColourAdaptor.h>
#include <zowidgets/host/base/CachedCast.h>
#include <zowidgets/host/drawing/HTMLRenderer.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Checkbox.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/panels/WidgetGroup.h>
#include <zowidgets/host/widgets/popups/Tooltip.h>
#include <zowidgets/host/widgets/text/LinkAwareMultiLineTextBox.h>
#include <zowidgets/host/widgets/text/NumericTextBox.h>
#include <zowidgets/host/widgets/text/TextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/values/binding/ValAdaptor.h>
#include <zowidgets/values/params/Params.h>

#include <algorithm>
#include <type_traits>
#include <typeinfo>

using namespace GenericParam;

namespace {

// The makers are chosen by class, so the cast always holds.
template <class P> P& as(Zo::Ptr<iParam> const& param) {
  if (P* typed = Zo::cachedDynamicCast<P>(param.get()))
    return *typed;
  throw std::bad_cast();
}

unsigned short narrower(unsigned short width, int by) {
  return static_cast<unsigned short>(std::max(static_cast<int>(width) - by, 0));
}

// The numeric side of a slider row: what differs between int and double.
template <class T> struct SliderRowRules;
template <> struct SliderRowRules<int> {
  // A slider over a wide range would need thousands of steps: at most 500.
  static double increment(Param<int> const& param) {
    return std::max(1.0, (static_cast<double>(param.max) - param.min) / 500.0);
  }
  static bool hasIncrement(Param<int> const& param) { return param.hasRange; }
  static double pointOfInterest(Param<int> const& param) { return param.getValue(); }
};
template <> struct SliderRowRules<double> {
  static double increment(Param<double> const& param) { return param.step; }
  static bool hasIncrement(Param<double> const& param) { return param.hasRange && param.step > 0; }
  static double pointOfInterest(Param<double> const& param) { return param.getDefaultValue(); }
};

// A slider row's number box is two rows wide, which holds the numbers of
// most ranges; it widens only where that would cut the digits of the range's
// ends, of the values a drag gives, or of the value, and then to at most
// half of the room beside the legend, so the slider keeps the other half.
template <class T> int numberBoxWidth(Param<T> const& param, int roomBesideLegend) {
  using Text = ValAdaptorConversion<LightweightString<wchar_t>, T>;
  int needed = 0;
  if (param.hasRange)
    needed = std::max(TextBox::widthToShow(Text::toWidget(param.min)), TextBox::widthToShow(Text::toWidget(param.max)));
  // A dragged slider gives fractions with every decimal the box shows, and
  // the sign: "-23.88" where the ends read "-24" and "12".
  if constexpr (std::is_floating_point_v<T>)
    if (param.hasRange)
      needed = std::max(needed, TextBox::widthToShow(NumericTextBox::longestTextFor(param.min, param.max)));
  // An integer within its range has no more digits than the wider end; a
  // double's value may have more than either (a third of 0 to 1).
  T const value = param.getValue();
  if (!param.hasRange || !std::is_integral_v<T> || value < param.min || value > param.max)
    needed = std::max(needed, TextBox::widthToShow(Text::toWidget(value)));
  int const usual = 2 * UifStd::getRowHeight();
  return std::clamp(needed, usual, std::max(usual, roomBesideLegend / 2));
}

} // namespace

template <class Adaptor, class B> Zo::Ptr<Adaptor> UIBuilder::makeAdaptor(Param<B>& param) {
  Zo::Ptr<Adaptor> adaptor(new Adaptor(nullptr));
  if (!rowsKeepTheirValues_) {
    adaptor->registerWith(&param.getServer());
    return adaptor;
  }
  Zo::Ptr<ValServer<B>> value = rowValue_.dynamicCast<ValServer<B>>();
  if (!value) {
    value = Zo::Ptr<ValServer<B>>(new ValServer<B>(param.getValue()));
    rowValue_ = value;
  }
  adaptor->shareServer(value);
  return adaptor;
}

// The colour and password rows are made in their own file.
template Zo::Ptr<ColourAdaptor> UIBuilder::makeAdaptor<ColourAdaptor, NormalisedRGB>(Param<NormalisedRGB>&);
template Zo::Ptr<ValAdaptor<LightweightString<wchar_t>, LightweightString<wchar_t>>>
UIBuilder::makeAdaptor<ValAdaptor<LightweightString<wchar_t>, LightweightString<wchar_t>>, LightweightString<wchar_t>>(
    Param<LightweightString<wchar_t>>&);

void UIBuilder::finishRow(Zo::Ptr<iParam> const& param, Glob* widget) {
  UIString const& tooltip = param->getTooltip();
  if (!tooltip.empty())
    widget->setContextString(TooltipDetails(tooltip));
  if (!param->isActive())
    widget->setActive(false, kRedrawNow);
  add(param, widget);
}

Glob* UIBuilder::makeBoolWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                WidgetSurround const& surround) {
  auto& boolParam = as<BoolParam>(param);
  Checkbox::InitArgs args(param->getLegend(), XY<int>(width_, UifStd::getRowHeight()), boolParam.getValue());
  args.appearance = Checkbox::getDefaultAppearance();
  auto* checkbox = createWidget<Checkbox>(args, isWidgetInitiallyVisible(param), position, surround);
  if (!checkbox)
    return nullptr;
  checkbox->setDataAdaptor(makeAdaptor<ValAdaptor<bool, bool>>(boolParam));
  finishRow(param, checkbox);
  panel_->tabOrder().addTabStop(*checkbox, kAppendTabStop);
  return checkbox;
}

template <class T> static SliderParamHost* makeSliderHost(UIBuilder& builder, Param<T>& param, int boxWidth,
                                                          bool visible, WidgetPosition const& position,
                                                          WidgetSurround const& surround) {
  int const rowHeight = UifStd::getRowHeight();
  int const boxRoom = boxWidth > 0 ? UifStd::getWidgetGap() + boxWidth : 0;
  int const sliderWidth = std::max(builder.getWidth() - boxRoom - builder.getLegendWidth(), 0);
  Slider::InitArgs slider(GlobCreationInfo(XY<int>(sliderWidth, 0)));
  if (param.hasRange) {
    slider.minValue = param.min;
    slider.maxValue = param.max;
    if (SliderRowRules<T>::hasIncrement(param))
      slider.increment = SliderRowRules<T>::increment(param);
  }
  slider.initialValue = param.getValue();
  // The titled slider spans the legend column and the slider.
  SliderParamHost::InitArgs args(param.getLegend(), XY<int>(builder.getWidth(), rowHeight),
                                 sliderWidth + builder.getLegendWidth(), slider);
  SliderParamHost* host = builder.createWidget<SliderParamHost>(args, visible, position, surround);
  if (host)
    host->getSlider()->setPointOfInterest(SliderRowRules<T>::pointOfInterest(param));
  return host;
}

Glob* UIBuilder::makeSliderRow(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                               WidgetSurround const& surround) {
  auto* intParam = Zo::cachedDynamicCast<IntParam>(param.get());
  auto* doubleParam = Zo::cachedDynamicCast<DoubleParam>(param.get());
  bool const withBox = intParam || (param->getPresentationHints() & kHintSliderOnly) == 0;
  bool const visible = isWidgetInitiallyVisible(param);
  int const roomBesideLegend = width_ - legendWidth_ - UifStd::getWidgetGap();
  int const boxWidth = !withBox   ? 0
                       : intParam ? numberBoxWidth(*intParam, roomBesideLegend)
                                  : numberBoxWidth(*doubleParam, roomBesideLegend);
  SliderParamHost* host = intParam ? makeSliderHost(*this, *intParam, boxWidth, visible, position, surround)
                                   : makeSliderHost(*this, *doubleParam, boxWidth, visible, position, surround);
  if (!host)
    return nullptr;
  Slider* slider = host->getSlider();
  NumericTextBox* box = nullptr;
  if (withBox) {
    TextBox::InitArgs boxArgs(XY<int>(boxWidth, getDefaultFontSize()));
    boxArgs.setPalette(makeChildPalette(host->getPalette(), kChildTextEntry));
    boxArgs.editable = true;
    box = host->createWidget<NumericTextBox>(boxArgs, Glob::RightCentre(UifStd::getIndentWidth(), 0, 2),
                                             TextBox::getLightInsetSurround());
    box->setAlignment(Glib::eTextAlignment::Right);
  }
  if (intParam) {
    slider->setDataAdaptor(makeAdaptor<ValAdaptor<double, int>>(*intParam));
    if (box)
      box->setDataAdaptor(makeAdaptor<ValAdaptor<LightweightString<wchar_t>, int>>(*intParam));
    if (box && intParam->hasRange)
      box->setValueRange(intParam->min, intParam->max);
  } else {
    slider->setDataAdaptor(makeAdaptor<ValAdaptor<double, double>>(*doubleParam));
    if (box)
      box->setDataAdaptor(makeAdaptor<ValAdaptor<LightweightString<wchar_t>, double>>(*doubleParam));
    if (box && doubleParam->hasRange)
      box->setValueRange(doubleParam->min, doubleParam->max);
  }
  finishRow(param, host);
  panel_->tabOrder().addTabStop(*slider, kAppendTabStop);
  if (box)
    panel_->tabOrder().addTabStop(*box, kAppendTabStop);
  return host;
}

Glob* UIBuilder::makeIntWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                               WidgetSurround const& surround) {
  return makeSliderRow(param, position, surround);
}

Glob* UIBuilder::makeFloatWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                 WidgetSurround const& surround) {
  return makeSliderRow(param, position, surround);
}

Glob* UIBuilder::makeChoiceWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                  WidgetSurround const& surround) {
  auto& choiceParam = as<ChoiceParam>(param);
  ChoiceParamHost::InitArgs args(param->getLegend(), XY<int>(width_, UifStd::getRowHeight()), choiceParam.getChoices());
  args.legendWidth = legendColumn(param->getLegend());
  auto* row = createWidget<ChoiceParamHost>(args, isWidgetInitiallyVisible(param), position, surround);
  if (!row)
    return nullptr;
  row->setDataAdaptor(makeAdaptor<ChoiceParamAdaptor>(choiceParam));
  finishRow(param, row);
  panel_->tabOrder().addTabStop(row->getMenuButton()->getBtn(), kAppendTabStop);
  return row;
}

Glob* UIBuilder::makeTextWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                WidgetSurround const& surround) {
  auto& textParam = as<TextParam>(param);
  if ((flags_ & kCompactText) != 0 && textParam.isObfuscated())
    return makePasswordWidget(param, position, surround);
  bool const visible = isWidgetInitiallyVisible(param);
  TextBoxBase* box = nullptr;
  if ((flags_ & kCompactText) != 0) {
    TextBox::InitArgs args(XY<int>(width_, UifStd::getRowHeight() + UifStd::getWidgetGap()));
    args.ghostLabel = param->getLegend();
    box = createWidget<TextBox>(args, visible, position, surround);
  } else {
    TitleTextBox::InitArgs args(XY<int>(width_, UifStd::getRowHeight()));
    args.ghostLabel = textParam.getHint();
    args.titleWidth = legendColumn(param->getLegend());
    box = createWidget<TitleTextBox>(args, visible, position, surround);
    if (box)
      static_cast<TitleTextBox*>(box)->setTitle(param->getLegend());
  }
  if (!box)
    return nullptr;
  box->setEditable(true);
  if (textParam.isObfuscated()) {
    box->setObfuscatedDisplay(true);
    box->setShowPasswordControl((textParam.getFlags() & TextParam::kShowPasswordControl) != 0);
  }
  box->setDataAdaptor(makeAdaptor<ValAdaptor<LightweightString<wchar_t>, LightweightString<wchar_t>>>(textParam));
  if (textParam.getAdvance())
    box->addListener(Broadcaster<TextBoxEvent>::makeCallback([box](TextBoxEvent const& event) {
      if (event.kind == TextBoxEvent::kReturnPressed)
        if (Glob* next = TabOrderManager::nextFor(box, true))
          set_kbd_focus(next);
    }));
  finishRow(param, box);
  panel_->tabOrder().addTabStop(*box, kAppendTabStop);
  return box;
}

Glob* UIBuilder::makeLabelWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                 WidgetSurround const& surround) {
  LightweightString<wchar_t> const html = HTMLRenderer::convertToHTML(
      param->getValueAsString().str(), HTMLRenderer::kEscapeMarkup | HTMLRenderer::kLineBreaksToTags);
  std::vector<HTMLParagraph> const paragraphs = HTMLRenderer::parse(html.str(), UifStd::getColourScheme());
  int const margin = UifStd::getWidgetGap();
  int const lines = HTMLRenderer::calcNumDisplayLines(paragraphs, std::max(width_ - 2 * margin, 1));
  int const height = ScrollableTextBoxBase::calcHeightForLines(lines, getDefaultFontSize(), margin);
  LinkAwareMultiLineTextBox::InitArgs args(XY<int>(width_, height));
  auto* box = createWidget<LinkAwareMultiLineTextBox>(args, isWidgetInitiallyVisible(param), position, surround);
  if (!box)
    return nullptr;
  box->setHTML(paragraphs);
  finishRow(param, box);
  return box;
}

Glob* UIBuilder::makeActionWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                  WidgetSurround const& surround) {
  UIString const label = param->getLegend();
  int const buttonWidth = TitleGlob::calcLegendWidth(label) + 2 * UifStd::getRowHeight();
  PushButton::InitArgs button(label, XY<int>(std::min<int>(buttonWidth, width_), PushButton::calcHeight()));
  TitledGlob<PushButton>::InitArgs args(UIString(), XY<int>(width_, PushButton::calcHeight()), button);
  auto* titled = createWidget<TitledGlob<PushButton>>(args, isWidgetInitiallyVisible(param), position, surround);
  if (!titled)
    return nullptr;
  titled->setResizeBehaviour(TitleGlob::kChildKeepsSize);
  if (auto const* action = dynamic_cast<ActionParam const*>(param.get()); action && !action->getTooltipText().empty())
    titled->getChild()->setContextString(TooltipDetails(action->getTooltipText()));
  finishRow(param, titled);
  panel_->tabOrder().addTabStop(*titled->getChild(), kAppendTabStop);
  return titled;
}

// A group is first sized for rows of one row's height; a group inside it is
// taller than that, so the group takes the height of its rows as made,
// hidden ones counted as shown so that showing them needs no more room.
static void fitGroupToRows(MinimizableGroup& group) {
  int const rowGap = UifStd::getRowGap();
  int content = 0;
  int rows = 0;
  for (Glob* row : group.getChildren())
    if (auto* host = dynamic_cast<UIBuilder::HostWidgetBase*>(row)) {
      content += (host->getChild() ? host->getChild()->height() : 0) + rowGap;
      ++rows;
    }
  if (rows > 0)
    content -= rowGap;
  int const needed = content + WidgetGroupEx::calcHeightForRows(0, UifStd::getRowHeight(), rowGap, 1);
  if (needed != group.height())
    group.parent()->resize(group.width(), needed + rowGap);
}

Glob* UIBuilder::makeGroupWidget(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                 WidgetSurround const& surround) {
  auto& group = as<GroupParam>(param);
  ParamList const& children = group.getChildren();
  int const height = WidgetGroupEx::calcHeightForRows(static_cast<int>(children.size()), UifStd::getRowHeight(),
                                                      UifStd::getRowGap(), 1);
  MinimizableGroup::InitArgs args(XY<int>(width_, height));
  args.title = param->getLegend();
  args.separatorStyle = WidgetGroup::kSeparatorNone;
  if (Glob* parent = currentParent())
    args.textColour = parent->getPalette().headingText();
  auto* widget = createWidget<MinimizableGroup>(args, isWidgetInitiallyVisible(param), position, surround);
  if (!widget)
    return nullptr;
  finishRow(param, widget);
  panel_->tabOrder().addTabStop(*widget, kAppendTabStop);

  parents_.push_back(widget);
  int const inset = WidgetGroupEx::childXOffset();
  width_ = narrower(width_, inset);
  bool first = true;
  for (Zo::Ptr<iParam> const& child : children) {
    params_.push_back(child);
    createWidgetForParam(child, first ? Glob::UserTopLeft(0, 0) : Glob::Below(0, nullptr, kAlignStart), {});
    first = false;
  }
  width_ = static_cast<unsigned short>(width_ + inset);
  parents_.pop_back();
  fitGroupToRows(*widget);
  return widget;
}
