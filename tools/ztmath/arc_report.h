// What an arcs command found, as text, as JSON and as a picture.
#pragma once

#include "arc_contact.h"

namespace tool {

/// A circle, a tangent or a point, and how it meets what is given.
struct ArcFinding {
    Entity shape;
    std::vector<Contact> contacts;
};

struct ArcReport {
    std::string title;  // "Circles that touch three circles"
    std::string noun;   // "solutions"
    std::vector<ArcFinding> found;
    std::string remark;  // why there are no others; "" for nothing to say
};

void conclude(const ArcReport& report, const ArcsOptions& options, const Given& given,
              const Tolerances& tols);

}  // namespace tool
