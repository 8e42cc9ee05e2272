#pragma once

#include <zowidgets/diagnostics/LabelledLine.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>

// The details of one widget, a line each, as the Glob Tree shows them: size,
// positions, weight, visibility, size limits, margins and legend. The widget
// is held by its stamp; once it has gone the view is empty.
class ZO_API GlobDetailsView : public Glob {
public:
  explicit GlobDetailsView(GlobCreationInfo const& info);
  char const* idstring() const override { return "GlobDetailsView"; }

  // Null clears the view.
  void setTarget(Glob* target);
  Glob* getTarget() const { return target_.get(); }
  // The lines for the widget as it is now; none once it has gone.
  LabelledLine describe() const;
  // The width the lines take at most, and their height.
  static XY<int> calcSize();

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  GlobHandle target_;
};
