#pragma once

#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/drawing/GraphicPrimitives.h>

// The picture behind a video window, drawn off screen before it is shown.
class ZO_API iVideoWindowBackBuffer {
public:
  class Renderer;
};

// Draws on the back buffer by handing each primitive, unchanged, to the
// renderer it was given, and answers with that renderer's answers. Rounded
// rectangles, triangle strips and fans and line strips are left to the base
// class, which builds them from the other primitives, so the inner renderer
// only ever sees those. Without an inner renderer nothing is drawn and there
// are no capabilities.
class ZO_API iVideoWindowBackBuffer::Renderer : public iGraphicPrimitivesRenderer {
public:
  explicit Renderer(Zo::Ptr<iGraphicPrimitivesRenderer> inner) : inner_(std::move(inner)) {}

  Zo::Ptr<iGraphicPrimitivesRenderer> const& inner() const noexcept { return inner_; }

  void setClipRegion(Zo::Ptr<iRegion> region) override;
  void setAntialiasingEnabled(bool enabled) override;
  unsigned int getCaps() const override;

  using iGraphicPrimitivesRenderer::renderMulti;
  void renderMulti(Glib::RectDescription const* items, unsigned int count) override;
  void renderMulti(Glib::EllipseDescription const* items, unsigned int count) override;
  void renderMulti(Glib::LineDescription const* items, unsigned int count) override;
  void renderMulti(Glib::TextDescription const* items, unsigned int count) override;
  void renderMulti(Glib::AlphaRectDescription const* items, unsigned int count) override;
  void renderMulti(Glib::BezierCurveDescription const* items, unsigned int count) override;
  void renderMulti(Glib::ImageDescription const* items, unsigned int count) override;
  void renderMulti(Glib::ImageDescriptionEx const* items, unsigned int count) override;
  void renderMulti(Glib::ShaderRectDescription const* items, unsigned int count) override;

private:
  template <class Description> void forward(Description const* items, unsigned int count) {
    if (inner_)
      inner_->renderMulti(items, count);
  }

  Zo::Ptr<iGraphicPrimitivesRenderer> inner_;
};
