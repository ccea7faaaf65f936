// Roll, pitch and yaw: to a matrix, back, and back in every way there is.
#include "kit/roll_pitch_yaw.h"

#include <cmath>
#include <cstddef>
#include <numbers>

#include "frame/report.h"
#include "kit/mtx3.h"
#include "kit/unitize.h"
#include "ztmath/mtx3.h"

namespace ztmath {

namespace {

constexpr Module report = mtx3_module.part(2);

constexpr double pi = std::numbers::pi;

/// A sine or cosine beyond this stands for a right angle.
constexpr double near_one = 0.9999999999;

/// Kept as it stands: 0 counts as negative, and so a null pair as the direction (-1, 0).
double sign_of(double value) {
    return value > 0.0 ? 1.0 : -1.0;
}

Direction cleaned(Direction d) {
    constexpr double small = element_tolerance;
    // Kept as it stands: tighter than a double can tell from 0, so that all but exact pairs are
    // rebuilt.
    constexpr double unit_tolerance = 1.0e-20;

    if (std::fabs(d.cos) > near_one || std::fabs(d.sin) <= small) return {sign_of(d.cos), 0.0};
    if (std::fabs(d.sin) > near_one || std::fabs(d.cos) <= small) return {0.0, sign_of(d.sin)};
    if (std::fabs(d.sin * d.sin + d.cos * d.cos - 1.0) <= unit_tolerance) return d;
    if (std::fabs(d.sin) >= std::fabs(d.cos))
        return {std::copysign(std::sqrt(1.0 - d.sin * d.sin), d.cos), d.sin};
    return {d.cos, std::copysign(std::sqrt(1.0 - d.cos * d.cos), d.sin)};
}

double angle_of(Direction d) {
    return std::atan2(d.sin, d.cos);
}

/// asin for a ratio that rounding may have carried to or beyond 1.
double clamped_asin(double ratio) {
    constexpr double clamp_at = 1.0 - 1.0e-14;
    return std::asin(std::fabs(ratio) > clamp_at ? std::copysign(1.0, ratio) : ratio);
}

struct Angles {
    double roll, pitch, yaw;
};

RollPitchYaw directions_of(const Angles& a) {
    return {{std::cos(a.roll), std::sin(a.roll)},
            {std::cos(a.pitch), std::sin(a.pitch)},
            {std::cos(a.yaw), std::sin(a.yaw)}};
}

bool is_close(double a, double b) {
    return std::fabs(a - b) <= element_tolerance;
}

/// Whether the angles give back the six elements that a rotation is decided by.
bool reproduces(const Angles& angles, const Mat3& m) {
    const Mat3 made = rotation_matrix(directions_of(angles));
    return is_close(m.x.x, made.x.x) && is_close(m.z.z, made.z.z) && is_close(m.x.y, made.x.y) &&
           is_close(m.x.z, made.x.z) && is_close(m.y.y, made.y.y) && is_close(m.y.z, made.y.z);
}

/// The distinct triples found so far.
class Solutions {
  public:
    void add(const Angles& found) {
        for (int i = 0; i < count_; ++i) {
            const Angles& a = list_[i];
            if (is_close(a.roll, found.roll) && is_close(a.pitch, found.pitch) &&
                is_close(a.yaw, found.yaw))
                return;
        }
        list_[count_++] = found;
    }

    int count() const { return count_; }

    void store(double* triples) const {
        for (std::ptrdiff_t i = 0; i < count_; ++i)
            ztmath::store(Vec3{list_[i].roll, list_[i].pitch, list_[i].yaw}, triples + 3 * i);
    }

  private:
    Angles list_[8];
    int count_ = 0;
};

/// The combinations of roll and yaw to try with one pitch.
struct Candidates {
    double pitch, roll[2], yaw[2];
};

Candidates regular_candidates(const Mat3& m, double pitch) {
    const double cp = std::cos(pitch);
    const double roll = clamped_asin(m.z.y / cp);
    const double yaw = clamped_asin(m.y.x / cp);
    return {pitch, {roll, pi - roll}, {yaw, pi - yaw}};
}

/// At a pitch of +-pi/2 only roll - yaw, or roll + yaw, is decided: one of the two is taken as 0.
Candidates upward_candidates(const Mat3& m) {
    double a = clamped_asin(m.y.z);
    if (std::fabs(m.x.z - std::cos(a)) > element_tolerance) a = pi - a;
    return {pi / 2, {-a, 0.0}, {0.0, a}};
}

Candidates downward_candidates(const Mat3& m) {
    double b = -clamped_asin(m.y.z);
    if (std::fabs(m.x.z + std::cos(b)) > element_tolerance) b = pi - b;
    return {-pi / 2, {b, 0.0}, {0.0, b}};
}

void add_reproducing(const Candidates& candidates, const Mat3& m, Solutions& solutions) {
    for (const double roll : candidates.roll)
        for (const double yaw : candidates.yaw) {
            const Angles angles{roll, candidates.pitch, yaw};
            if (reproduces(angles, m)) solutions.add(angles);
        }
}

Solutions all_roll_pitch_yaw(const Mat3& m) {
    Solutions solutions;
    const double sp = -m.z.x;
    if (std::fabs(sp) <= near_one) {
        const double pitch = clamped_asin(sp);
        add_reproducing(regular_candidates(m, pitch), m, solutions);
        add_reproducing(regular_candidates(m, pi - pitch), m, solutions);
    } else {
        add_reproducing(upward_candidates(m), m, solutions);
        add_reproducing(downward_candidates(m), m, solutions);
    }
    return solutions;
}

}  // namespace

RollPitchYaw cleaned_roll_pitch_yaw(const Mat3& m) {
    const double squared_cos_pitch = m.x.x * m.x.x + m.y.x * m.y.x;
    if (squared_cos_pitch <= null_length_squared) {
        const bool downward = m.z.x >= 0.0;
        return {
            cleaned({m.y.y, downward ? -m.x.y : m.x.y}), {0.0, downward ? -1.0 : 1.0}, {1.0, 0.0}};
    }
    const double cp = std::sqrt(squared_cos_pitch);
    return {cleaned({m.z.z / cp, m.z.y / cp}), cleaned({cp, -m.z.x}),
            cleaned({m.x.x / cp, m.y.x / cp})};
}

}  // namespace ztmath

using namespace ztmath;

void MTX3_init_roll_pitch_yaw(double roll, double pitch, double yaw, double matrix[9]) {
    const Mat3 rotation = rotation_matrix(directions_of({roll, pitch, yaw}));
    ZTMATH_ASSERT(report, "MTX3_is_ortho_normal (rot_mat)", is_ortho_normal(rotation));
    store(rotation, matrix);
}

void MTX3_ask_roll_pitch_yaw(const double m[9], double* roll, double* pitch, double* yaw) {
    const RollPitchYaw angles = cleaned_roll_pitch_yaw(load_mat3(m));
    *roll = angle_of(angles.roll);
    *pitch = angle_of(angles.pitch);
    *yaw = angle_of(angles.yaw);
}

void MTX3_ask_all_roll_pitch_yaw(const double m[9], int* count, double triples[24]) {
    const Solutions solutions = all_roll_pitch_yaw(load_mat3(m));
    *count = solutions.count();
    solutions.store(triples);
}
