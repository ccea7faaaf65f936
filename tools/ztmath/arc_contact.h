// How what was found meets what was given, measured anew.
#pragma once

#include "arc_entities.h"

namespace tool {

struct Contact {
    std::string with;  // "circle 2"
    std::string how;   // "touches it from outside"
    Vec2 at{};
    double residual = 0.0;              // how far it misses, a length
    std::optional<double> parameter{};  // of the point, on what was given
};

/// How far a point is from the whole line or circle.
double miss(const Entity& e, const Vec2& p);

/// Of a circle: one for each thing given: the entities in order, then the radius, the point to
/// touch at and the angle.
std::vector<Contact> contacts_of(const Entity& circle, const Given& given);

}  // namespace tool
