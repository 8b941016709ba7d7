#pragma once
// A raster image placed in the drawing: a uniform scale (metres per pixel) and
// the map coordinates of its minimum corner. The maximum corner follows from
// them: the centre of the last pixel, (size - 1) x scale from the minimum.
#include <QString>
#include <memory>

#include "DibImage.h"

class CVELDImage {
public:
    CVELDImage(QString name, std::shared_ptr<pix::CDibImage> image, double scale = 1.0,
               double xMin = 0.0, double yMin = 0.0)
        : name_(std::move(name)),
          image_(std::move(image)),
          scale_(scale),
          xMin_(xMin),
          yMin_(yMin) {}

    const QString& GetName() const { return name_; }
    pix::CDibImage* GetImage() const { return image_.get(); }
    double GetScale() const { return scale_; }
    double GetXMin() const { return xMin_; }
    double GetYMin() const { return yMin_; }
    double GetXMax() const { return xMin_ + Span(image_ ? image_->GetWidth() : 0) * scale_; }
    double GetYMax() const { return yMin_ + Span(image_ ? image_->GetHeight() : 0) * scale_; }
    void Set(double scale, double xMin, double yMin) {
        scale_ = scale;
        xMin_ = xMin;
        yMin_ = yMin;
    }

private:
    static double Span(unsigned long pixels) { return pixels > 0 ? double(pixels - 1) : 0.0; }
    QString name_;
    std::shared_ptr<pix::CDibImage> image_;
    double scale_;
    double xMin_;
    double yMin_;
};
