#include <zowidgets/colour/ComponentTextBox.h>

ComponentTextBox::ComponentTextBox(InitArgs const& args) : TitleTextBox(args) {
  setCharacters(L".0123456789", kOnlyAllowed);
  setAlignment(Glib::eTextAlignment::Right);
}
