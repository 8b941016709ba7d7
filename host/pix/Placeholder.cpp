// Raster images.
namespace pix {
int placeholder_pix = 0;
}
