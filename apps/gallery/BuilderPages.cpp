// Panels made by the panel builder: one from a list of parameters, its rules
// live; one from the JSON description in the description test panel.
#include "PageLayout.h"

#include <zowidgets/builder/UIBuilderJSONTestPanel.h>
#include <zowidgets/builder/UIBuilderTestPanel.h>

namespace {

Glob* buildParameterPage(PageContext const& context) { return UIBuilderTestPanel::open(context.screenPosition); }

// The description panel with its sample built beside it: two windows.
Glob* buildDescriptionPage(PageContext const& context) {
  UIBuilderJSONTestPanel* panel = UIBuilderJSONTestPanel::open(context.screenPosition);
  panel->build();
  return panel;
}

PageRegistrar const parameterPage{"builder-parameters", "Panel built from parameters",
                                  "Every kind of parameter made into a row by the panel builder, with a row shown "
                                  "only when Advanced is ticked, a row active only then, two sliders that limit each "
                                  "other, a group and a reset action; Build makes the rows afresh",
                                  buildParameterPage};

PageRegistrar const descriptionPage{"builder-json", "Panel built from JSON",
                                    "A JSON description in a text box and the panel the Build button made from it",
                                    buildDescriptionPage};

} // namespace
