#pragma once

#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/params/GenericParam.h>

#include <map>
#include <vector>

namespace JSON {
class Element;
}
namespace GenericParam {
template <class T> class Param;
}

// Turns a list of parameters, or a JSON description, into rows of bound
// widgets down a panel. A builder lives for one build; what outlives it is
// the UIBuilder::Params that the build returns.
class ZO_API UIBuilder {
public:
  using iParam = GenericParam::iParam;
  using ParamList = GenericParam::ParamList;
  using WidgetMap = std::map<LightweightString<char>, Glob*>;

  class iPostCondition;
  class Params;
  class HostWidgetBase;
  template <class T> class HostWidget;

  // Bit 0 of the build flags: text rows show their legend as ghost text and
  // sit further apart.
  static constexpr unsigned kCompactText = 1;
  // A resource id meaning "no tooltip".
  static constexpr unsigned kNoTooltip = 999999;
  // The tab order number that appends a stop after the others.
  static constexpr unsigned kAppendTabStop = 4294967294u;

  explicit UIBuilder(StandardPanel* panel);
  ~UIBuilder();
  UIBuilder(UIBuilder const&) = delete;
  UIBuilder& operator=(UIBuilder const&) = delete;
  // Takes the row width from the panel's user area and starts the parent
  // stack with the panel.
  void init();

  // --- Building from parameters -----------------------------------------
  Zo::Ptr<Params> build(ParamList const& params, configb const& config);
  static Zo::Ptr<Params> build(ParamList const& params, StandardPanel* panel, unsigned flags);
  // One row for one parameter, on a panel laid out by its caller. Returns the
  // row's widget that is a direct child of the panel; null when none was made.
  static Glob* createWidget(Zo::Ptr<iParam> const& param, StandardPanel* panel, unsigned short width,
                            unsigned short legendWidth, WidgetPosition const& position, WidgetSurround const& surround);
  Glob* createWidgetForParam(Zo::Ptr<iParam> const& param, WidgetPosition const& position,
                             WidgetSurround const& surround);
  // The one place a row joins the tree: a HostWidget<T> on the current
  // parent, hidden when `visible` is false. Returns the inner T (null without
  // a panel). Defined in builder/HostWidget.h.
  template <class T> T* createWidget(typename T::InitArgs const& args, bool visible, WidgetPosition const& position,
                                     WidgetSurround const& surround);
  // Records the row of `widget` (its host) under the parameter's id, unless
  // the id has a row already.
  void add(Zo::Ptr<iParam> const& param, Glob* widget);
  void calcMaxLegendWidth(ParamList const& params);
  // The height the rows of `params` take, before any panel exists.
  static unsigned short calcHeight(ParamList const& params, unsigned flags);
  Zo::Ptr<iParam> findParam(LightweightString<char> const& id) const;
  bool isWidgetInitiallyVisible(Zo::Ptr<iParam> const& param) const;
  void calcInitalWidgetVisibility();

  Glob* makeBoolWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeIntWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeFloatWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeChoiceWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeTextWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeLabelWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeActionWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeGroupWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeColourWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeFontWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeFileWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);
  // In compact mode an obfuscated text row is a password box with its eye.
  Glob* makePasswordWidget(Zo::Ptr<iParam> const&, WidgetPosition const&, WidgetSurround const&);

  // --- Building from a JSON description ---------------------------------
  static Zo::Ptr<Params> buildFromJSON(LightweightString<wchar_t> const& text, StandardPanel* panel);
  static Zo::Ptr<Params> buildFromJSON(Zo::Ptr<JSON::Element> const& root, StandardPanel* panel);
  Zo::Ptr<Params> build(Zo::Ptr<JSON::Element> const& root);
  // The number of entries; 0 unless the root has exactly one child.
  static unsigned short getNumParams(Zo::Ptr<JSON::Element> const& root);
  // The entry's "tooltip" resource id, kNoTooltip when it has none.
  static unsigned getTooltip(Zo::Ptr<JSON::Element> const& entry);
  void calcMaxLegendWidth(Zo::Ptr<JSON::Element> const& root);
  Glob* makeBoolParam(Zo::Ptr<JSON::Element> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeIntParam(Zo::Ptr<JSON::Element> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeChoiceParam(Zo::Ptr<JSON::Element> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeTextParam(Zo::Ptr<JSON::Element> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeFloatParam(Zo::Ptr<JSON::Element> const&, WidgetPosition const&, WidgetSurround const&);
  Glob* makeLabelParam(Zo::Ptr<JSON::Element> const&, WidgetPosition const&, WidgetSurround const&);

  // --- State, for callers and tests --------------------------------------
  StandardPanel* getPanel() const noexcept { return panel_; }
  ParamList const& getParams() const noexcept { return params_; }
  unsigned short getWidth() const noexcept { return width_; }
  unsigned short getLegendWidth() const noexcept { return legendWidth_; }
  WidgetMap const& getWidgets() const noexcept { return widgets_; }
  std::vector<Zo::Ptr<iPostCondition>> const& getPostConditions() const noexcept { return postConditions_; }
  std::vector<Glob*> const& getParents() const noexcept { return parents_; }
  void setFlags(unsigned newFlags) noexcept { flags_ = newFlags; }
  // Where the first row goes; the panel's top left unless set.
  void setStartPosition(WidgetPosition const& position) { position_ = position; }
  unsigned getFlags() const noexcept { return flags_; }

private:
  Glob* currentParent() const { return parents_.empty() ? nullptr : parents_.back(); }
  // Where a titled row's control starts: at the legend column the sliders
  // start at, or past a longer legend of its own.
  int legendColumn(UIString const& legend) const;
  // The maker for a parameter, by the first class that matches.
  Glob* makeRow(Zo::Ptr<iParam> const& param, bool doubleFirst, WidgetPosition const& position,
                WidgetSurround const& surround);
  Glob* makeSliderRow(Zo::Ptr<iParam> const& param, WidgetPosition const& position, WidgetSurround const& surround);
  // What every row maker does once its row is made.
  void finishRow(Zo::Ptr<iParam> const& param, Glob* widget);
  void wireRules(Zo::Ptr<iParam> const& param);
  Glob* makeTextRow(UIString const& legend, WidgetPosition const& position, WidgetSurround const& surround);
  void wireJSONRules(Zo::Ptr<JSON::Element> const& entry);
  // Rows shown under opposite conditions on one parameter share a slot.
  void mergeAlternateRows(Zo::Ptr<JSON::Element> const& entries, std::vector<Glob*> const& rows);
  void setLegendWidthFor(std::vector<UIString> const& legends);
  // An adaptor for a row of `param`. On the description path the parameter
  // dies once its row is made, so the row's widgets share a value of their
  // own, made from the parameter's: the form stays a working form.
  template <class Adaptor, class B> Zo::Ptr<Adaptor> makeAdaptor(GenericParam::Param<B>& param);

  StandardPanel* panel_;
  ParamList params_;
  unsigned short width_ = 0;
  unsigned short legendWidth_ = 0;
  WidgetMap widgets_;
  WidgetPosition position_;
  WidgetSurround surround_;
  unsigned flags_ = 0;
  std::vector<Zo::Ptr<iPostCondition>> postConditions_;
  std::vector<Glob*> parents_;
  std::map<LightweightString<char>, bool> initiallyVisible_;
  bool rowsKeepTheirValues_ = false;
  // The value the widgets of the row being made share, on the description path.
  Zo::Ptr<iObject> rowValue_;
};

// Run after every change of a built panel's parameters, with the whole list.
class ZO_API UIBuilder::iPostCondition : public iObject {
public:
  virtual void execute(LightweightVector<Zo::Ptr<GenericParam::iParam>> const& params) = 0;
};
