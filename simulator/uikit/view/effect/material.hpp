// The translucent materials of Control Center's modules: a dark ground and a light one on it, which
// slides there. Flat colours over what the panel behind them has blurred already.
#pragma once

namespace simulator {

void registerMaterials();

}  // namespace simulator
