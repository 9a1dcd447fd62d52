#include "BurnCurve.h"

#include <cmath>

namespace vexmoor {

double BurnCurve::height(double t, double full, std::uint64_t frameSeed) {
    constexpr double kRisen = 0.3;
    constexpr double kSinking = 0.78;
    if (t < kRisen)
        return full * (1 - std::pow(1 - t / kRisen, 3));
    if (t < kSinking)
        return full + 2 * SeededRNG{frameSeed}.uniform() - 1;
    return full * (1 - std::pow((t - kSinking) / (1 - kSinking), 2));
}

} // namespace vexmoor
