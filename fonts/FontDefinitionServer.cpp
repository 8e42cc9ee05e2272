#include <zowidgets/fonts/FontDefinitionServer.h>

void FontDefinitionServer::notifyValChanged(DataChangeType type) {
  if (!quiet_)
    ValServer<FontDefinition>::notifyValChanged(type);
}

void FontDefinitionServer::preNotifyValChanged(DataChangeType type) {
  if (!quiet_)
    ValServer<FontDefinition>::preNotifyValChanged(type);
}

void FontDefinitionServer::assignQuietly(FontDefinition const& font) {
  quiet_ = true;
  updateAndNotify(font);
  quiet_ = false;
}

void setFontWithNotices(ValServer<FontDefinition>& server, FontDefinition const& font) {
  server.preNotifyValChanged(kDataChangeAll);
  server.updateAndNotify(font);
}
