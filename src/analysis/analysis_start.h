// screen: what every analysis of the ensembles begins and ends with.
#pragma once

namespace kq {

// Whether the ensembles have more species than an analysis takes, which has been said then.
bool too_many_to_analyse();

// The species and positions of one analysis. When it goes they are freed with the matrices, however that
// comes about.
class AnalysisScope {
public:
    AnalysisScope() = default;
    ~AnalysisScope();
    AnalysisScope(const AnalysisScope&) = delete;
    AnalysisScope& operator=(const AnalysisScope&) = delete;

    // elimine_pos_gap(); false when no position is left, which has been said.
    bool choose_positions();
};

} // namespace kq
