#include "Result.h"
