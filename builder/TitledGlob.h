#pragma once

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/TitleGlob.h>
#include <zowidgets/host/widgets/text/TextBoxBase.h>

#include <algorithm>

// A legend with a child widget of type T to its right, made in one go.
template <class T> class TitledGlob : public TitleGlob {
public:
  struct InitArgs : TitleGlob::InitArgs {
    InitArgs() = default;
    InitArgs(UIString legendText, XY<int> size, typename T::InitArgs const& child = {})
        : TitleGlob::InitArgs(GlobCreationInfo(size)), childArgs(child) {
      legend = std::move(legendText);
    }
    // The child's own arguments: a size given here is kept if it fits.
    typename T::InitArgs childArgs;
    // What idstring() answers; empty unless set.
    LightweightString<char> id;
  };

  explicit TitledGlob(InitArgs const& args) : TitleGlob(args), id_(args.id) {
    int const edge = edgeThickness();
    int const room = std::max(height() - 2 * edge, 0);
    int const childHeight = args.childArgs.size.y > 0 ? std::min(args.childArgs.size.y, room) : room;
    // The legend keeps its text and the gap after it.
    int childWidth = std::max(width() - TitleGlob::calcLegendWidth(args.legend) - 2 * edge, 0);
    if (args.childArgs.size.x > 0 && args.childArgs.size.x < childWidth)
      childWidth = args.childArgs.size.x;
    typename T::InitArgs childArgs = args.childArgs;
    childArgs.size = XY<int>(childWidth, childHeight);
    setChildGlob(createChild<T>(childArgs, Glob::RightCentre(edge, 0, 2)));
  }

  char const* idstring() const override { return id_.c_str(); }
  T* getChild() const noexcept { return static_cast<T*>(getChildGlob()); }

  // The thickness of the theme's edges, kept clear around the child.
  static int edgeThickness() { return TextBoxBase::getLightInsetSurround().left; }

private:
  LightweightString<char> id_;
};
