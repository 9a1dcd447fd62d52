#include "Pixel.h"
