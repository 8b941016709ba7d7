#pragma once
// A raster image in memory.
#include <QImage>

namespace pix {

class CDibImage {
public:
    CDibImage() = default;
    explicit CDibImage(QImage image) : image_(std::move(image)) {}
    unsigned long GetWidth() const { return static_cast<unsigned long>(image_.width()); }
    unsigned long GetHeight() const { return static_cast<unsigned long>(image_.height()); }
    const QImage& GetQImage() const { return image_; }

private:
    QImage image_;
};

}  // namespace pix
