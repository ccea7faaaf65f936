// Which construction of circles the things given ask for, and its solutions.
#pragma once

#include "arc_entities.h"

namespace tool {

struct ArcSolutions {
    std::vector<Entity> circles;
    std::string fault;   // why there can be none, in words; "" for nothing amiss
    std::string remark;  // what else there is to say
};

struct ArcProblem {
    const char* name;   // "Circles that touch three circles"
    const char* words;  // what has to be given, "three circles"
    int points, lines, circles;
    bool radius, at, angle;
    ArcSolutions (*solve)(const Given& given, const Tolerances& tols);

    bool fits(const Given& given) const;
};

/// The problem that is posed; null for a combination that has no construction.
const ArcProblem* problem_of(const Given& given);

/// All that can be asked for, a line each.
std::string possible_problems();

}  // namespace tool
