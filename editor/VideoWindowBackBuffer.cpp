#include <zowidgets/editor/VideoWindowBackBuffer.h>

using Renderer = iVideoWindowBackBuffer::Renderer;

void Renderer::setClipRegion(Zo::Ptr<iRegion> region) {
  if (inner_)
    inner_->setClipRegion(std::move(region));
}

void Renderer::setAntialiasingEnabled(bool enabled) {
  if (inner_)
    inner_->setAntialiasingEnabled(enabled);
}

unsigned int Renderer::getCaps() const { return inner_ ? inner_->getCaps() : 0u; }

void Renderer::renderMulti(Glib::RectDescription const* items, unsigned int count) { forward(items, count); }
void Renderer::renderMulti(Glib::EllipseDescription const* items, unsigned int count) { forward(items, count); }
void Renderer::renderMulti(Glib::LineDescription const* items, unsigned int count) { forward(items, count); }
void Renderer::renderMulti(Glib::TextDescription const* items, unsigned int count) { forward(items, count); }
void Renderer::renderMulti(Glib::AlphaRectDescription const* items, unsigned int count) { forward(items, count); }
void Renderer::renderMulti(Glib::BezierCurveDescription const* items, unsigned int count) { forward(items, count); }
void Renderer::renderMulti(Glib::ImageDescription const* items, unsigned int count) { forward(items, count); }
void Renderer::renderMulti(Glib::ImageDescriptionEx const* items, unsigned int count) { forward(items, count); }
void Renderer::renderMulti(Glib::ShaderRectDescription const* items, unsigned int count) { forward(items, count); }
