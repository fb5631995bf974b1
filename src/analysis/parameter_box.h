// screen: the box that asks for the parameters of an analysis.
#pragma once

namespace kq {

// Asks for type_auto, percent_gap and alpha, proposing the defaults every time. 0, or -1 on ESCAPE; then they
// are as they were.
int saisir_param_auto();

} // namespace kq
