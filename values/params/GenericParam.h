#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/LightweightVector.h>
#include <zowidgets/host/base/TextSearch.h>
#include <zowidgets/host/base/UIString.h>

#include <list>
#include <vector>

class configb;

// A widget-free model of a settings form: named, typed, constrained values
// that cross one choke point as text, so that constraints and handlers are
// written once for every type.
namespace GenericParam {

// "The value text of parameter `paramId` matches `criteria`."
struct ZO_API Condition {
  Condition() = default;
  Condition(LightweightString<char> const& id, wchar_t const* pattern) : paramId(id), criteria(pattern) {}

  LightweightString<char> paramId;
  TextSearch::Criteria criteria;
};

// Given a candidate value's text, gives the text to use instead. It may
// rewrite; it cannot refuse.
class ZO_API iValueConstraint : public iObject {
public:
  virtual LightweightString<wchar_t> constrain(LightweightString<wchar_t> const& candidate) = 0;
};

// Told the parameter's id and its new value's text after every change.
class ZO_API iValueChangeHandler : public iObject {
public:
  virtual void handleValueChange(LightweightString<char> const& paramId, LightweightString<wchar_t> const& value) = 0;
};

class ZO_API iParam : public virtual iObject {
public:
  virtual LightweightString<wchar_t> getValueAsString() const = 0;
  virtual void setValueFromString(LightweightString<wchar_t> const& text) = 0;
  virtual bool isAcceptableValueString(LightweightString<wchar_t> const& text) const = 0;
  virtual LightweightString<wchar_t> getDefaultValueAsString() const = 0;
  virtual LightweightString<char> getValueType() const = 0;
  virtual LightweightString<char> getID() const = 0;
  virtual UIString const& getLegend() const = 0;
  // True if the value changed.
  virtual bool reset() = 0;
  virtual UIString const& getTooltip() const = 0;
  virtual bool isActive() const = 0;
  virtual void setActive(bool active) = 0;
  virtual void addChangeHandler(Zo::Ptr<iValueChangeHandler> const& handler) = 0;
  virtual void addValueConstraint(Zo::Ptr<iValueConstraint> const& constraint) = 0;
  virtual unsigned int getPresentationHints() const = 0;
  virtual void setPresentationHints(unsigned int hints) = 0;
  virtual Zo::Ptr<iParam> clone() const = 0;
  virtual void setActiveIf(Condition const& condition) = 0;
  virtual void isLessThan(LightweightString<char> const& otherId) = 0;
  virtual void isGreaterThan(LightweightString<char> const& otherId) = 0;
  virtual void setVisibleIf(Condition const& condition) = 0;
  virtual void enforceConstraints() = 0;
};

using ParamList = LightweightVector<Zo::Ptr<iParam>>;

// Whether a parameter still exists, for rules that refer to one without
// keeping it alive: two limits on each other, each keeping the other, would
// otherwise keep both for ever. Every parameter, each copy too, has its own.
class ZO_API ParamLife : public iObject {
public:
  bool isAlive() const noexcept { return alive_; }
  void end() noexcept { alive_ = false; }

private:
  bool alive_ = true;
};

// Presentation hint read by the library's own presenter: on a DoubleParam,
// draw the slider alone, with no numeric box.
constexpr unsigned int kHintSliderOnly = 4;

// The fields and rules every parameter shares. The rules are only recorded
// here; a builder turns them into handlers, constraints and post-conditions.
class ZO_API ParamBase : public virtual iParam {
public:
  ParamBase(LightweightString<char> const& type, LightweightString<char> const& id, UIString const& legend,
            UIString const& tooltip);
  // Copies every field; handler and constraint lists share their elements.
  ParamBase(ParamBase const&) = default;

  LightweightString<char> getValueType() const override { return type_; }
  LightweightString<char> getID() const override { return id_; }
  UIString const& getLegend() const override { return legend_; }
  UIString const& getTooltip() const override { return tooltip_; }
  bool isActive() const override { return active_; }
  void setActive(bool active) override { active_ = active; }
  void addChangeHandler(Zo::Ptr<iValueChangeHandler> const& handler) override;
  void addValueConstraint(Zo::Ptr<iValueConstraint> const& constraint) override;
  unsigned int getPresentationHints() const override { return presentationHints_; }
  void setPresentationHints(unsigned int hints) override { presentationHints_ = hints; }
  void setActiveIf(Condition const& condition) override { activeConditions_.push_back(condition); }
  void isLessThan(LightweightString<char> const& otherId) override { lessThanId_ = otherId; }
  void isGreaterThan(LightweightString<char> const& otherId) override { greaterThanId_ = otherId; }
  void setVisibleIf(Condition const& condition) override { visibleCondition_ = condition; }
  // Nothing to replay for a parameter without a value.
  void enforceConstraints() override {}

  // The choke point: `text` through every constraint in order of adding.
  LightweightString<wchar_t> requestValueChange(LightweightString<wchar_t> const& text) const;
  // Tells every change handler, in order of adding.
  void handleDataChange(LightweightString<wchar_t> const& text);

  std::vector<Condition> const& getActiveConditions() const noexcept { return activeConditions_; }
  LightweightString<char> const& getLessThanId() const noexcept { return lessThanId_; }
  LightweightString<char> const& getGreaterThanId() const noexcept { return greaterThanId_; }
  // An empty paramId means no condition.
  Condition const& getVisibleCondition() const noexcept { return visibleCondition_; }
  std::size_t changeHandlerCount() const noexcept { return changeHandlers_.size(); }
  // Ends when this parameter is destroyed.
  Zo::Ptr<ParamLife> const& getLife() const noexcept { return life_.token; }
  std::size_t valueConstraintCount() const noexcept { return valueConstraints_.size(); }

private:
  // A copy is a new parameter with a life of its own.
  struct LifeToken {
    LifeToken() : token(new ParamLife) {}
    LifeToken(LifeToken const&) : LifeToken() {}
    LifeToken& operator=(LifeToken const&) { return *this; }
    ~LifeToken() { token->end(); }
    Zo::Ptr<ParamLife> token;
  };

  LifeToken life_;
  LightweightString<char> type_;
  LightweightString<char> id_;
  UIString legend_;
  UIString tooltip_;
  bool active_ = true;
  std::list<Zo::Ptr<iValueChangeHandler>> changeHandlers_;
  std::list<Zo::Ptr<iValueConstraint>> valueConstraints_;
  unsigned int presentationHints_ = 0;
  std::vector<Condition> activeConditions_;
  LightweightString<char> lessThanId_;
  LightweightString<char> greaterThanId_;
  Condition visibleCondition_;
};

// Saved state is a flat configb: each parameter's value text under its id.
// Groups store nothing themselves; their children are stored under their own
// ids (ids are unique across a list, groups included). Actions store nothing.
ZO_API void saveState(ParamList const& params, configb& state);
// Sets each parameter found in `state` through setValueFromString and leaves
// the others alone. Callers then run enforceConstraints on the list.
ZO_API void restoreState(ParamList& params, configb const& state);
// Brings saved state in line with the list before it is used: drops entries
// that no parameter owns, values their parameter refuses, and child trees.
// Returns how many entries it dropped.
ZO_API int validateState(ParamList const& params, configb& state);

} // namespace GenericParam
