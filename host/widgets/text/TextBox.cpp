#include <zowidgets/host/widgets/text/TextBox.h>

void TextBox::setCursorPosition(std::size_t position) {
  editModel().setCaret(position);
  caretMoved();
}

void TextBox::highlightAllText() {
  editModel().selectAll();
  caretMoved();
}
