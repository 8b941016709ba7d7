#include "VELDImage.h"
