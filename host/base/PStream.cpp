#include <zowidgets/host/base/PStream.h>

void PStream::writeBinary(std::string_view text) {
  file_.write(text.data(), text.size());
  file_.setCookedChar(0);
}
