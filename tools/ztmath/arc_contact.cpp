#include "arc_contact.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "number.h"

namespace tool {

namespace {

Vec2 unit(const Vec2& v) {
    const double size = length(v);
    return size > 0.0 ? Vec2{v[0] / size, v[1] / size} : Vec2{1.0, 0.0};
}

/// The point of a circle next to a point.
Vec2 toward(const Entity& circle, const Vec2& p) {
    return along(circle.place, circle.radius, unit(p - circle.place));
}

Contact with_line(const Entity& circle, const Entity& line) {
    const Vec2 d = unit(line.direction);
    const Vec2 foot = along(line.place, dot(circle.place - line.place, d), d);
    return {line.name, "touches it", foot, miss(circle, foot)};
}

Contact with_circle(const Entity& circle, const Entity& other) {
    const Vec2 between = circle.place - other.place;
    const double distance = length(between);
    const double outside = std::fabs(distance - (circle.radius + other.radius));
    const double inside = std::fabs(distance - std::fabs(circle.radius - other.radius));
    if (outside <= inside)
        return {other.name, "touches it from outside", toward(other, circle.place), outside};
    if (circle.radius < other.radius)
        return {other.name, "touches it from inside", toward(other, circle.place), inside};
    return {other.name, "touches it from around", along(other.place, -other.radius, unit(between)),
            inside};
}

/// The centres of circles that cross at an angle are one of two distances apart.
Contact crossing(const Entity& circle, const Entity& other, double degrees) {
    const Vec2 between = other.place - circle.place;
    const double distance = length(between);
    const double squares = circle.radius * circle.radius + other.radius * other.radius;
    const double mixed =
        2.0 * circle.radius * other.radius * std::cos(degrees * std::numbers::pi / 180.0);
    const double near = std::fabs(distance - std::sqrt(std::fmax(squares - mixed, 0.0)));
    const double far = std::fabs(distance - std::sqrt(squares + mixed));
    const Vec2 u = unit(between);
    const double reach =
        (distance * distance + circle.radius * circle.radius - other.radius * other.radius) /
        (2.0 * distance);
    const double half = std::sqrt(std::fmax(circle.radius * circle.radius - reach * reach, 0.0));
    return {other.name, "crosses it at " + exact(degrees) + "\u00b0",
            along(along(circle.place, reach, u), half, {-u[1], u[0]}), std::fmin(near, far)};
}

Contact with(const Entity& circle, const Entity& e, const Given& given) {
    if (e.kind == Entity::point)
        return {e.name, "passes through it", e.place, miss(circle, e.place)};
    if (e.kind == Entity::line) return with_line(circle, e);
    return given.angle ? crossing(circle, e, *given.angle) : with_circle(circle, e);
}

}  // namespace

double miss(const Entity& e, const Vec2& p) {
    const Vec2 way = p - e.place;
    if (e.kind == Entity::point || e.is_round()) return std::fabs(length(way) - e.radius);
    const Vec2 d = unit(e.direction);
    return std::fabs(way[0] * d[1] - way[1] * d[0]);
}

std::vector<Contact> contacts_of(const Entity& circle, const Given& given) {
    std::vector<Contact> contacts;
    for (const Entity& e : given.entities)
        contacts.push_back(with(circle, e, given));
    if (given.at) contacts.push_back({"at", "touches there", *given.at, miss(circle, *given.at)});
    if (given.radius)
        contacts.push_back(
            {"radius", "has it", circle.place, std::fabs(circle.radius - *given.radius)});
    return contacts;
}

}  // namespace tool
