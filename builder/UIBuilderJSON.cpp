#include <zowidgets/builder/BuilderRules.h>
#include <zowidgets/builder/HostWidget.h>
#include <zowidgets/builder/UIBuilderParams.h>
#include <zowidgets/host/base/AttribValuePair.h>
#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/host/base/JSON.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/values/params/Params.h>

#include <cstdlib>

// A description makes its parameters only to hand them to the row makers:
// nothing keeps them, so each dies once its row is made, and rules and saved
// state have no model to act on. Each row keeps a value of its own instead,
// so the form still answers its user. Code that needs live parameters builds
// from a parameter list.

using namespace GenericParam;
using JSONElementPtr = Zo::Ptr<JSON::Element>;
using Zo::AttribValuePair;

namespace {

UIString legendOf(JSONElementPtr const& entry) { return UIString(entry->getWString("legend")); }

UIString tooltipOf(JSONElementPtr const& entry) { return UIString(UIBuilder::getTooltip(entry)); }

// Numbers are found without regard to case, so "Min" works as "min".
double numberOf(JSONElementPtr const& entry, char const* key, double fallback) {
  return entry->getNumber(key, fallback);
}

// "values" is an object of numbered choices; anything else under that key
// (an array, say) reads as absent, as a key of the wrong type does.
JSONElementPtr choicesOf(JSONElementPtr const& entry) {
  JSONElementPtr values = entry->getChild("values");
  return values && !values->isArray() ? values : JSONElementPtr();
}

// The text of a rule key, "id=pattern", as the pieces it names.
AttribValuePair pairOf(JSONElementPtr const& entry, char const* key) {
  return AttribValuePair(entry->getString(key), '=');
}

} // namespace

Zo::Ptr<UIBuilder::Params> UIBuilder::buildFromJSON(LightweightString<wchar_t> const& text, StandardPanel* panel) {
  return buildFromJSON(JSON::parse(text), panel);
}

Zo::Ptr<UIBuilder::Params> UIBuilder::buildFromJSON(JSONElementPtr const& root, StandardPanel* panel) {
  UIBuilder builder(panel);
  return builder.build(root);
}

unsigned short UIBuilder::getNumParams(JSONElementPtr const& root) {
  if (!root || root->getNumChildren() != 1)
    return 0;
  return root->getChild(static_cast<unsigned short>(0))->getNumChildren();
}

unsigned UIBuilder::getTooltip(JSONElementPtr const& entry) {
  if (!entry || entry->getNumNumericAttribs() == 0)
    return kNoTooltip;
  JSON::Element::NumericAttrib const* tooltip = entry->findNumericAttrib("tooltip");
  if (!tooltip)
    return kNoTooltip;
  int const id = ftisqq(tooltip->value);
  return id < 0 ? kNoTooltip : static_cast<unsigned>(id);
}

void UIBuilder::calcMaxLegendWidth(JSONElementPtr const& root) {
  std::vector<UIString> legends;
  // The legend of a label row, or of a line of text (a type the builder
  // does not know), is its text, across the whole row (as with parameters).
  auto const hasLegendBeside = [](LightweightString<char> const& type) {
    for (char const* kind : {"bool", "int", "text", "float", "colour", "font", "file"})
      if (type == kind)
        return true;
    return false;
  };
  if (JSONElementPtr const entries = root ? root->getChild(static_cast<unsigned short>(0)) : JSONElementPtr())
    for (unsigned short i = 0; i < entries->getNumChildren(); ++i)
      if (JSONElementPtr const entry = entries->getChild(i); entry && hasLegendBeside(entry->getString("type")))
        legends.push_back(legendOf(entry));
  setLegendWidthFor(legends);
}

Glob* UIBuilder::makeBoolParam(JSONElementPtr const& entry, WidgetPosition const& position,
                               WidgetSurround const& surround) {
  Zo::Ptr<iParam> const param(
      new BoolParam(legendOf(entry), entry->getString("name"), tooltipOf(entry), entry->getBool("default", false)));
  return makeBoolWidget(param, position, surround);
}

Glob* UIBuilder::makeIntParam(JSONElementPtr const& entry, WidgetPosition const& position,
                              WidgetSurround const& surround) {
  // A range is taken as written: min above max is kept, default is not clamped.
  int const min = ftisql(numberOf(entry, "min", -1));
  int const max = ftisql(numberOf(entry, "max", -1));
  int const value = ftisql(numberOf(entry, "default", -1));
  Zo::Ptr<iParam> const param(
      new IntParam(legendOf(entry), entry->getString("name"), tooltipOf(entry), value, min, max));
  return makeIntWidget(param, position, surround);
}

Glob* UIBuilder::makeFloatParam(JSONElementPtr const& entry, WidgetPosition const& position,
                                WidgetSurround const& surround) {
  double const min = numberOf(entry, "min", -1);
  double const max = numberOf(entry, "max", -1);
  double const value = numberOf(entry, "default", -1);
  Zo::Ptr<iParam> const param(
      new DoubleParam(legendOf(entry), entry->getString("name"), tooltipOf(entry), value, min, max));
  return makeFloatWidget(param, position, surround);
}

Glob* UIBuilder::makeChoiceParam(JSONElementPtr const& entry, WidgetPosition const& position,
                                 WidgetSurround const& surround) {
  std::vector<ChoiceParam::Choice> choices;
  if (JSONElementPtr const values = choicesOf(entry))
    for (JSON::Element::NumericAttrib const& attrib : values->getNumericAttribs()) {
      ChoiceParam::Choice choice;
      choice.label = UIString(LightweightString<wchar_t>::fromUTF8(attrib.name));
      choice.value = static_cast<unsigned int>(ftisqq(attrib.value));
      choice.enabled = true;
      choices.push_back(choice);
    }
  LightweightString<char> const text = entry->getString("choice");
  unsigned int value = 4294967295u; // no choice at all
  if (!text.empty())
    value = static_cast<unsigned int>(std::strtoul(text.c_str(), nullptr, 10));
  else if (!choices.empty())
    value = choices.front().value;
  Zo::Ptr<iParam> const param(
      new ChoiceParam(legendOf(entry), entry->getString("name"), tooltipOf(entry), static_cast<int>(value), choices));
  return makeChoiceWidget(param, position, surround);
}

Glob* UIBuilder::makeTextParam(JSONElementPtr const& entry, WidgetPosition const& position,
                               WidgetSurround const& surround) {
  unsigned const textFlags = entry->getBool("obfuscated", false)
                                 ? TextParam::kObfuscated | TextParam::kShowPasswordControl
                                 : TextParam::kPlain;
  Zo::Ptr<iParam> const param(new TextParam(legendOf(entry), entry->getString("name"), tooltipOf(entry),
                                            entry->getWString("value"), UIString(entry->getWString("hint")), textFlags,
                                            entry->getBool("advance", false)));
  return makeTextWidget(param, position, surround);
}

Glob* UIBuilder::makeLabelParam(JSONElementPtr const& entry, WidgetPosition const& position,
                                WidgetSurround const& surround) {
  UIString const legend = legendOf(entry);
  Zo::Ptr<iParam> const param(new LabelParam(legend, entry->getString("name"), legend.getString(), tooltipOf(entry)));
  return makeLabelWidget(param, position, surround);
}

void UIBuilder::wireJSONRules(JSONElementPtr const& entry) {
  LightweightString<char> const name = entry->getString("name");
  auto const row = widgets_.find(name);
  if (row == widgets_.end())
    return;

  std::vector<AttribValuePair> const active = AttribValuePair::vecFromString(entry->getString("active if"), '=', ',');
  if (!active.empty()) {
    std::vector<Condition> conditions;
    for (AttribValuePair const& pair : active)
      conditions.emplace_back(pair.attrib(), toWide(pair.value().c_str()).c_str());
    postConditions_.emplace_back(new BuilderRules::ActiveIfCondition(row->second, conditions));
  }

  AttribValuePair const visible = pairOf(entry, "visible if");
  if (visible.valid()) {
    if (Zo::Ptr<iParam> const controlling = findParam(visible.attrib()))
      controlling->addChangeHandler(Zo::Ptr<iValueChangeHandler>(
          new BuilderRules::VisibleIfHandler(row->second, TextSearch::Criteria(toWide(visible.value().c_str())))));
  }

  LightweightString<char> const higher = entry->getString("must not be higher than");
  if (!higher.empty()) {
    Zo::Ptr<iParam> const own = findParam(name);
    if (Zo::Ptr<iParam> const other = findParam(higher); own && other)
      own->addValueConstraint(Zo::Ptr<iValueConstraint>(new BuilderRules::UpperLimitConstraint(other)));
  }
  LightweightString<char> const lower = entry->getString("must not be lower than");
  if (!lower.empty()) {
    Zo::Ptr<iParam> const own = findParam(name);
    if (Zo::Ptr<iParam> const other = findParam(lower); own && other)
      own->addValueConstraint(Zo::Ptr<iValueConstraint>(new BuilderRules::LowerLimitConstraint(other)));
  }
}

void UIBuilder::mergeAlternateRows(JSONElementPtr const& entries, std::vector<Glob*> const& rows) {
  int remaining = static_cast<int>(widgets_.size());
  int const count = entries->getNumChildren();
  for (int i = 1; i < count; ++i) {
    AttribValuePair const mine = pairOf(entries->getChild(i), "visible if");
    if (!mine.valid())
      continue;
    int j = i - 1;
    for (; j >= 0; --j) {
      AttribValuePair const theirs = pairOf(entries->getChild(j), "visible if");
      if (!theirs.valid() || theirs.attrib() != mine.attrib() || theirs.value() == mine.value())
        break;
    }
    // A run that reaches the first entry is left alone, by design.
    if (j == i - 1 || j < 0)
      continue;
    Glob* row = rows[static_cast<std::size_t>(i)];
    Glob* slot = rows[static_cast<std::size_t>(j)];
    if (row && slot) {
      WidgetPosition position = row->getWidgetPosition();
      position.sibling = slot;
      row->setWidgetDetails(position, row->getWidgetSurround());
    }
    // Runs of three or more subtract more than they save; panels with such
    // runs are sized by this rule.
    remaining = remaining - (i - 1) + j;
  }
  int const mapped = static_cast<int>(widgets_.size());
  if (remaining != mapped && panel_) {
    int const rowPitch = UifStd::getRowHeight() + UifStd::getRowGap();
    panel_->setDimensions(XY<int>(panel_->width(), panel_->height() - (mapped - remaining) * rowPitch));
  }
}

// An entry of no known type: its legend as a line of text.
Glob* UIBuilder::makeTextRow(UIString const& legend, WidgetPosition const& position, WidgetSurround const& surround) {
  TextLabel::InitArgs args(XY<int>(width_, UifStd::getRowHeight()));
  args.text = legend;
  return createWidget<TextLabel>(args, true, position, surround);
}

Zo::Ptr<UIBuilder::Params> UIBuilder::build(JSONElementPtr const& root) {
  JSONElementPtr const entries = root ? root->getChild(static_cast<unsigned short>(0)) : JSONElementPtr();
  if (entries && panel_) {
    Drawable::Suspender hold;
    calcMaxLegendWidth(root);
    rowsKeepTheirValues_ = true;
    std::vector<Glob*> rows;
    for (unsigned short i = 0; i < entries->getNumChildren(); ++i) {
      JSONElementPtr const entry = entries->getChild(i);
      // The first row sits at the top left; each later one keeps a row gap
      // from the one above.
      WidgetPosition const position = i == 0 ? Glob::UserTopLeft(0, 0) : Glob::Below(0, nullptr, kAlignStart);
      WidgetSurround const surround = i == 0 ? WidgetSurround::none() : UifStd::getRowSeparator(kRelativeAbove);
      LightweightString<char> const type = entry->getString("type");
      Glob* widget = nullptr;
      if (type == "bool")
        widget = makeBoolParam(entry, position, surround);
      else if (type == "int")
        widget =
            choicesOf(entry) ? makeChoiceParam(entry, position, surround) : makeIntParam(entry, position, surround);
      else if (type == "text")
        widget = makeTextParam(entry, position, surround);
      else if (type == "float")
        widget = makeFloatParam(entry, position, surround);
      else if (type == "label")
        widget = makeLabelParam(entry, position, surround);
      else if (type == "colour")
        widget = makeColourWidget(
            Zo::Ptr<iParam>(new ColourParam(legendOf(entry), entry->getString("name"), tooltipOf(entry),
                                            ParamText<NormalisedRGB>::fromText(entry->getWString("value")))),
            position, surround);
      else if (type == "font")
        widget = makeFontWidget(Zo::Ptr<iParam>(new FontParam(legendOf(entry), entry->getString("name"),
                                                              tooltipOf(entry), entry->getWString("value"))),
                                position, surround);
      else if (type == "file")
        widget = makeFileWidget(Zo::Ptr<iParam>(new FileParam(legendOf(entry), entry->getString("name"),
                                                              tooltipOf(entry), entry->getWString("value"))),
                                position, surround);
      else
        widget = makeTextRow(legendOf(entry), position, surround);
      rowValue_ = Zo::Ptr<iObject>();
      rows.push_back(widget ? widget->parent() : nullptr);
      wireJSONRules(entry);
    }
    mergeAlternateRows(entries, rows);
    for (Zo::Ptr<iParam> const& param : params_)
      param->enforceConstraints();
    panel_->clearPendingRedraws();
    panel_->invalidate();
  }
  return Zo::Ptr<Params>(new Params(params_, widgets_, postConditions_));
}
