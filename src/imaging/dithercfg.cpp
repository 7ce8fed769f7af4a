#include "imaging/dithercfg.h"

#include <algorithm>

void dithercfg::Reset() {
    *this = dithercfg();
    algorithm = ALGORITHM_CLUSTERED;
    dispersed_matrix = 2;
    clustered_matrix = 2;
    sequence = 18;
    flags = FLAG_DEFAULT;
}

void dithercfg::Validate() {
    for (int16_t* adjustment : {&brightness, &contrast, &red, &green, &blue})
        *adjustment = std::clamp<int16_t>(*adjustment, -100, 100);
    algorithm = std::clamp<int16_t>(algorithm, ALGORITHM_NONE, ALGORITHM_DEVICE);
    dispersed_matrix = std::clamp<int16_t>(dispersed_matrix, 0, 2);
    diffusion_kernel = std::clamp<int16_t>(diffusion_kernel, 0, 1);
    if (clustered_matrix < 0 || clustered_matrix > 3) clustered_matrix = 2;
}

int16_t dithercfg::_DefaultClusterMatrix(int dpi) {
    if (dpi < 180) return 1;
    return dpi < 400 ? 2 : 3;
}
