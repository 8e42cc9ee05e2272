#pragma once

#include <zowidgets/host/drawing/FontDefinition.h>
#include <zowidgets/values/notify/ValServer.h>

// The font a chooser button or a table's font editor holds: a value server
// that its owner can also set without telling anyone, as when it shows a
// font that came from outside.
class ZO_API FontDefinitionServer : public ValServer<FontDefinition> {
public:
  using ValServer<FontDefinition>::ValServer;
  using ValServer<FontDefinition>::operator=;

  void notifyValChanged(DataChangeType type) override;
  void preNotifyValChanged(DataChangeType type) override;
  // Stores the font (through the manager, if any) with no notice at all.
  void assignQuietly(FontDefinition const& font);

private:
  bool quiet_ = false;
};

// Sets a font value as a user's edit does: a notice before, the value, a
// notice after, even when the font is unchanged.
ZO_API void setFontWithNotices(ValServer<FontDefinition>& server, FontDefinition const& font);
