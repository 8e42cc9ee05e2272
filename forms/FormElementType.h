#pragma once

// The kind of a form element, one value per concrete element class. A form
// answers kFormNoElement for an index it does not hold.
enum form_element_type : int {
  kFormNoElement = 0,
  kFormBool = 1,
  kFormChoice = 2,
  kFormCycle = 3,
  kFormEntry = 4,
  kFormPath = 5,
  kFormInteger = 6,
  kFormDouble = 7,
};
