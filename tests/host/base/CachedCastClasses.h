#pragma once

// Classes for the cached cast's tests, in the shape of the parameters: an
// interface reached through virtual inheritance from more than one side, so
// bases lie at offsets that differ from one complete type to the next.
namespace CastTest {

struct Root {
  virtual ~Root() = default;
  int root = 1;
};
struct Left : virtual Root {
  int left = 2;
};
struct Right : virtual Root {
  int right = 3;
};
struct Padding {
  virtual ~Padding() = default;
  char bytes[40] = {};
};
struct Both : Left, Right {
  int both = 4;
};
struct PaddedBoth : Padding, Both {
  int padded = 5;
};
struct LeftOnly : Padding, Left {
  int only = 6;
};

} // namespace CastTest
