#include <zowidgets/builder/BuilderRules.h>
#include <zowidgets/builder/HostWidget.h>
#include <zowidgets/builder/TitledGlob.h>
#include <zowidgets/builder/UIBuilderParams.h>
#include <zowidgets/host/base/CachedCast.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>
#include <zowidgets/values/params/Params.h>

#include <algorithm>
#include <typeinfo>
#include <vector>

using namespace GenericParam;

namespace {

// Undoes the redraw hold of a build however it ends.
class BuildRedrawHold {
public:
  explicit BuildRedrawHold(Glob* panel) : panel_(panel) { Drawable::disableRedraws(); }
  // Whatever the rows asked for is replaced by one paint of the whole panel
  // when the hold ends.
  ~BuildRedrawHold() {
    if (panel_) {
      panel_->clearPendingRedraws();
      panel_->invalidate();
    }
    Drawable::enableRedraws();
  }
  BuildRedrawHold(BuildRedrawHold const&) = delete;
  BuildRedrawHold& operator=(BuildRedrawHold const&) = delete;

private:
  Glob* panel_;
};

template <class T> bool is(Zo::Ptr<iParam> const& param) { return Zo::cachedDynamicCast<T>(param.get()) != nullptr; }

enum class RowKind : unsigned char {
  kNone,
  kText,
  kDouble,
  kBool,
  kChoice,
  kLabel,
  kInt,
  kAction,
  kGroup,
  kColour,
  kFont,
  kFile
};

// The classes are disjoint; the order only decides which test runs first.
RowKind rowKindByCasts(Zo::Ptr<iParam> const& param, bool doubleFirst) {
  if (doubleFirst && is<DoubleParam>(param))
    return RowKind::kDouble;
  if (is<TextParam>(param))
    return RowKind::kText;
  if (is<DoubleParam>(param))
    return RowKind::kDouble;
  if (is<BoolParam>(param))
    return RowKind::kBool;
  if (is<ChoiceParam>(param))
    return RowKind::kChoice;
  if (is<LabelParam>(param))
    return RowKind::kLabel;
  if (is<IntParam>(param))
    return RowKind::kInt;
  if (is<ActionParam>(param))
    return RowKind::kAction;
  if (is<GroupParam>(param))
    return RowKind::kGroup;
  if (is<ColourParam>(param))
    return RowKind::kColour;
  if (is<FontParam>(param))
    return RowKind::kFont;
  if (is<FileParam>(param))
    return RowKind::kFile;
  return RowKind::kNone;
}

// What the casts answer depends on the parameter's class alone, so it is
// asked once per class: a failed cast across the shared libraries compares
// type names all the way up the hierarchy, and the int rows came seventh.
RowKind rowKindOf(Zo::Ptr<iParam> const& param, bool doubleFirst) {
  struct Known {
    std::type_info const* type;
    bool doubleFirst;
    RowKind kind;
  };
  thread_local std::vector<Known> known;
  std::type_info const& type = typeid(*param);
  for (Known const& entry : known)
    if (entry.type == &type && entry.doubleFirst == doubleFirst)
      return entry.kind;
  RowKind const kind = rowKindByCasts(param, doubleFirst);
  known.push_back(Known{&type, doubleFirst, kind});
  return kind;
}

} // namespace

UIBuilder::UIBuilder(StandardPanel* panel) : panel_(panel) { init(); }

UIBuilder::~UIBuilder() = default;

void UIBuilder::init() {
  width_ = panel_ ? static_cast<unsigned short>(std::max(panel_->getUserArea().width(), 0)) : 0;
  position_ = Glob::UserTopLeft(0, 0);
  // Each row's host holds the gap below it, so rows need no separator.
  surround_ = WidgetSurround::none();
  parents_.clear();
  if (panel_)
    parents_.push_back(panel_);
}

Zo::Ptr<UIBuilder::Params> UIBuilder::build(ParamList const& params, StandardPanel* panel, unsigned flags) {
  UIBuilder builder(panel);
  builder.setFlags(flags);
  return builder.build(params, configb());
}

Zo::Ptr<UIBuilder::Params> UIBuilder::build(ParamList const& params, configb const& config) {
  BuildRedrawHold hold(panel_);
  params_ = params; // shared: group children are appended to the caller's list
  calcMaxLegendWidth(params_);
  if (config.size() != 0 || !config.children().empty())
    GenericParam::restoreState(params_, config);
  calcInitalWidgetVisibility();

  WidgetPosition rowPosition = position_;
  WidgetSurround rowSurround = surround_;
  std::size_t const topLevelCount = params_.size();
  for (std::size_t i = 0; i < topLevelCount; ++i) {
    Zo::Ptr<iParam> const param = params_[i];
    makeRow(param, false, rowPosition, rowSurround);
    if ((flags_ & kCompactText) != 0 && is<TextParam>(param)) {
      rowPosition = Glob::Below(2 * UifStd::getWidgetGap(), nullptr, kAlignStart);
      rowSurround = WidgetSurround::none();
    } else {
      rowPosition = Glob::Below(0, nullptr, kAlignStart);
      rowSurround = surround_;
    }
  }

  for (Zo::Ptr<iParam> const& param : params_)
    wireRules(param);
  for (Zo::Ptr<iParam> const& param : params_)
    param->enforceConstraints();
  for (Zo::Ptr<iPostCondition> const& condition : postConditions_)
    condition->execute(params_);

  Zo::Ptr<Params> result(new Params(params_, widgets_, postConditions_));
  for (Zo::Ptr<iParam> const& param : params_) {
    if (param->getValueType() != "action")
      continue;
    auto action = param.dynamicCast<ActionParam>();
    auto* host = dynamic_cast<HostWidget<TitledGlob<PushButton>>*>(result->getWidget(param->getID()));
    if (!action || !host)
      continue;
    Params* owner = result.get();
    host->getWidget()->getChild()->setCallback(Broadcaster<ButtonEvent>::makeCallback(
        [owner, action](ButtonEvent const&) { owner->handleActionParam(action); }));
  }
  return result;
}

Glob* UIBuilder::createWidget(Zo::Ptr<iParam> const& param, StandardPanel* panel, unsigned short width,
                              unsigned short legendWidth, WidgetPosition const& position,
                              WidgetSurround const& surround) {
  UIBuilder builder(panel);
  builder.width_ = width;
  builder.legendWidth_ = legendWidth;
  Glob* widget = builder.createWidgetForParam(param, position, surround);
  while (widget && widget->parent() != panel)
    widget = widget->parent();
  return widget;
}

Glob* UIBuilder::createWidgetForParam(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                                      WidgetSurround const& surround) {
  if (legendWidth_ == 0 && param)
    calcMaxLegendWidth(ParamList{param});
  return makeRow(param, true, position, surround);
}

Glob* UIBuilder::makeRow(Zo::Ptr<iParam> const& param, bool doubleFirst, WidgetPosition const& position,
                         WidgetSurround const& surround) {
  if (!param)
    return nullptr;
  switch (rowKindOf(param, doubleFirst)) {
  case RowKind::kText:
    return makeTextWidget(param, position, surround);
  case RowKind::kDouble:
    return makeFloatWidget(param, position, surround);
  case RowKind::kBool:
    return makeBoolWidget(param, position, surround);
  case RowKind::kChoice:
    return makeChoiceWidget(param, position, surround);
  case RowKind::kLabel:
    return makeLabelWidget(param, position, surround);
  case RowKind::kInt:
    return makeIntWidget(param, position, surround);
  case RowKind::kAction:
    return makeActionWidget(param, position, surround);
  case RowKind::kGroup:
    return makeGroupWidget(param, position, surround);
  case RowKind::kColour:
    return makeColourWidget(param, position, surround);
  case RowKind::kFont:
    return makeFontWidget(param, position, surround);
  case RowKind::kFile:
    return makeFileWidget(param, position, surround);
  case RowKind::kNone:
    break;
  }
  // Unknown kinds get no row.
  return nullptr;
}

void UIBuilder::add(Zo::Ptr<iParam> const& param, Glob* widget) {
  if (!param || !widget)
    return;
  widgets_.emplace(param->getID(), widget->parent());
}

void UIBuilder::setLegendWidthFor(std::vector<UIString> const& legends) {
  int const widest = DropDownMenuButton::calcWidth(legends, UifStd::getFont());
  legendWidth_ = static_cast<unsigned short>(std::max(widest - Button::getRevealIndicatorWidth(), 0));
}

int UIBuilder::legendColumn(UIString const& legend) const {
  return std::max<int>(legendWidth_, TitleMenuButton::calcTitleWidth(legend));
}

// A label row shows its text across the whole row, with no legend beside
// it: counted as a legend, a long text took every other row's room.
void UIBuilder::calcMaxLegendWidth(ParamList const& params) {
  std::vector<UIString> legends;
  for (Zo::Ptr<iParam> const& param : params)
    if (param && param->getValueType() != "action" && !is<LabelParam>(param))
      legends.emplace_back(param->getLegend().getString());
  setLegendWidthFor(legends);
}

unsigned short UIBuilder::calcHeight(ParamList const& params, unsigned flags) {
  if (params.empty())
    return 0;
  int const rowHeight = UifStd::getRowHeight();
  int const rowGap = UifStd::getRowGap();
  int const widgetGap = UifStd::getWidgetGap();
  auto const count = static_cast<int>(params.size());
  if ((flags & kCompactText) == 0)
    return static_cast<unsigned short>(count * (rowHeight + rowGap) - rowGap);
  int total = 0;
  for (int i = 0; i < count; ++i) {
    if (is<TextParam>(params[static_cast<std::size_t>(i)])) {
      total += rowHeight + widgetGap;
      if (i + 1 < count)
        total += 2 * widgetGap;
    } else {
      total += rowHeight + rowGap;
    }
  }
  return static_cast<unsigned short>(total);
}

Zo::Ptr<iParam> UIBuilder::findParam(LightweightString<char> const& id) const {
  for (Zo::Ptr<iParam> const& param : params_)
    if (param && param->getID() == id)
      return param;
  return {};
}

void UIBuilder::calcInitalWidgetVisibility() {
  initiallyVisible_.clear();
  for (Zo::Ptr<iParam> const& param : params_) {
    if (!param)
      continue;
    initiallyVisible_[param->getID()] = true;
    auto const* base = Zo::cachedDynamicCast<ParamBase const>(param.get());
    if (!base || base->getVisibleCondition().paramId.empty())
      continue;
    Condition const& condition = base->getVisibleCondition();
    if (Zo::Ptr<iParam> const controlling = findParam(condition.paramId))
      initiallyVisible_[param->getID()] = TextSearch::match(controlling->getValueAsString(), condition.criteria, 0);
  }
}

bool UIBuilder::isWidgetInitiallyVisible(Zo::Ptr<iParam> const& param) const {
  if (!param)
    return true;
  auto const found = initiallyVisible_.find(param->getID());
  return found == initiallyVisible_.end() || found->second;
}

void UIBuilder::wireRules(Zo::Ptr<iParam> const& param) {
  auto const* base = Zo::cachedDynamicCast<ParamBase const>(param.get());
  if (!base)
    return;
  LightweightString<char> const id = param->getID();
  auto const row = widgets_.find(id);
  if (row != widgets_.end() && !base->getActiveConditions().empty())
    postConditions_.emplace_back(new BuilderRules::ActiveIfCondition(row->second, base->getActiveConditions()));

  Condition const& visible = base->getVisibleCondition();
  if (!visible.paramId.empty() && row != widgets_.end())
    if (Zo::Ptr<iParam> const controlling = findParam(visible.paramId))
      controlling->addChangeHandler(
          Zo::Ptr<iValueChangeHandler>(new BuilderRules::VisibleIfHandler(row->second, visible.criteria)));

  if (!base->getGreaterThanId().empty())
    if (Zo::Ptr<iParam> const other = findParam(base->getGreaterThanId()))
      param->addValueConstraint(Zo::Ptr<iValueConstraint>(new BuilderRules::LowerLimitConstraint(other)));
  if (!base->getLessThanId().empty())
    if (Zo::Ptr<iParam> const other = findParam(base->getLessThanId()))
      param->addValueConstraint(Zo::Ptr<iValueConstraint>(new BuilderRules::UpperLimitConstraint(other)));
}
