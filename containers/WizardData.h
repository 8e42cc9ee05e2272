#pragma once

#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/base/configb.h>

// The values a wizard's stages share. A stage's page lives only while the
// stage is on show, so whatever a stage must remember goes here.
class ZO_API WizardData : public iObject {
public:
  configb& values() noexcept { return values_; }
  configb const& values() const noexcept { return values_; }

private:
  configb values_;
};
