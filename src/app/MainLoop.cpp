#include "MainLoop.h"
