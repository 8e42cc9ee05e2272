#pragma once

class form;

// One row of a static table saying which element of which form copies its
// value to which element of another. A row whose sourceElement is -1 ends
// the table; a row without a target still counts as a hit.
struct form_update_table {
  static constexpr int kEndOfTable = -1;
  form* source;
  int sourceElement;
  form* target;
  int targetElement;
};
