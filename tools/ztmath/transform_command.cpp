#include "transform_command.h"

#include <ztmath/mc.h>
#include <ztmath/mtx3.h>
#include <ztmath/mtx4.h>
#include <CLI/CLI.hpp>

#include <array>
#include <memory>
#include <string>

#include "json.h"
#include "library_call.h"
#include "number.h"
#include "output.h"
#include "points_file.h"
#include "vec.h"

namespace tool {

namespace {

using Matrix = std::array<double, 16>;
using MatrixBuilder = std::function<Matrix()>;

// ---- Options that are numbers ----

/// The numbers of an option's text, written as on a line of a file of points; none if they are not
/// that many.
std::vector<double> numbers_in(const std::string& text, int count) {
    try {
        const Points points = parse_points(text, text, count);
        if (points.count() == 1) return points.coordinates;
    } catch (const Failure&) {
        // Said in the words of the option.
    }
    return {};
}

CLI::Option* add_vector(CLI::App& command, const std::string& name, Vec3& vector,
                        const std::string& description) {
    const auto read = [name, &vector](const std::string& text) {
        const std::vector<double> numbers = numbers_in(text, 3);
        if (numbers.empty())
            throw CLI::ValidationError(name, "three numbers X,Y,Z expected, not " + text);
        vector = load<3>(numbers.data());
    };
    return command.add_option_function<std::string>(name, read, description)->type_name("X,Y,Z");
}

/// A vector that has a value without being given.
void add_vector(CLI::App& command, const std::string& name, Vec3& vector,
                const std::string& description, const char* otherwise) {
    vector = load<3>(numbers_in(otherwise, 3).data());
    add_vector(command, name, vector, description)->default_str(otherwise);
}

CLI::Option* add_angle(CLI::App& command, double& degrees, const std::string& description) {
    const auto read = [&degrees](const std::string& text) {
        const std::vector<double> numbers = numbers_in(text, 1);
        if (numbers.empty())
            throw CLI::ValidationError("--angle", "a number of degrees expected, not " + text);
        degrees = numbers[0];
    };
    return command.add_option_function<std::string>("--angle", read, description)
        ->type_name("DEGREES");
}

/// One factor for all axes, or three.
CLI::Option* add_factors(CLI::App& command, Vec3& factors) {
    const auto read = [&factors](const std::string& text) {
        std::vector<double> numbers = numbers_in(text, 1);
        if (!numbers.empty()) numbers.resize(3, numbers[0]);
        if (numbers.empty()) numbers = numbers_in(text, 3);
        if (numbers.empty())
            throw CLI::ValidationError("--factors", "one number or three expected, not " + text);
        factors = load<3>(numbers.data());
    };
    return command
        .add_option_function<std::string>("--factors", read, "Factor, or factors along the axes")
        ->type_name("F or X,Y,Z");
}

[[noreturn]] void refuse(const std::string& what) {
    throw Failure{ExitCode::usage, what};
}

// ---- The transforms: each adds its options and says how they make a matrix ----

MatrixBuilder scaling(CLI::App& command) {
    struct Options {
        Vec3 centre, factors;
    };
    const auto o = std::make_shared<Options>();
    add_vector(command, "--centre", o->centre, "The point that stays in its place", "0,0,0");
    add_factors(command, o->factors)->required();
    return [o] {
        Matrix m;
        call_library([&] { MTX4_scaling(o->centre.data(), o->factors.data(), m.data()); });
        return m;
    };
}

MatrixBuilder rotation(CLI::App& command) {
    struct Options {
        Vec3 point, axis;
        double angle;
    };
    const auto o = std::make_shared<Options>();
    add_vector(command, "--point", o->point, "A point on the axis", "0,0,0");
    add_vector(command, "--axis", o->axis, "Direction of the axis")->required();
    add_angle(command, o->angle, "Angle, counter-clockwise looking against the axis")->required();
    return [o] {
        Matrix m;
        bool null = false;
        call_library([&] {
            null = MTX4_rotation(o->point.data(), o->axis.data(), o->angle, m.data()) != 0;
        });
        if (null) refuse("--axis has no direction");
        return m;
    };
}

MatrixBuilder mirroring(CLI::App& command) {
    struct Options {
        Vec3 point, normal;
    };
    const auto o = std::make_shared<Options>();
    add_vector(command, "--point", o->point, "A point on the plane", "0,0,0");
    add_vector(command, "--normal", o->normal, "Normal of the plane")->required();
    return [o] {
        Matrix m;
        bool null = false;
        call_library([&] { null = MTX4_mirror(o->point.data(), o->normal.data(), m.data()) != 0; });
        if (null) refuse("--normal has no direction");
        return m;
    };
}

/// A frame as the command line gives it.
struct Frame {
    Vec3 origin, x, y;

    void add(CLI::App& command, const std::string& prefix, const std::string& words) {
        add_vector(command, prefix + "-origin", origin, "Origin of the frame " + words, "0,0,0");
        add_vector(command, prefix + "-x", x, "Its X direction", "1,0,0");
        add_vector(command, prefix + "-y", y, "Its Y direction, perpendicular to X", "0,1,0");
    }

    /// The library would take the absolute axes in place of skew ones.
    bool is_valid() const {
        double axes[9];
        return MTX3_init(x.data(), y.data(), axes) != 0;
    }
};

MatrixBuilder motion(CLI::App& command) {
    struct Options {
        Frame from, to;
    };
    const auto o = std::make_shared<Options>();
    o->from.add(command, "--from", "that the points are given in");
    o->to.add(command, "--to", "that they are carried to");
    return [o] {
        Matrix m;
        const char* skew = nullptr;
        call_library([&] {
            if (!o->from.is_valid()) skew = "--from";
            if (!o->to.is_valid()) skew = "--to";
            MTX4_csys_to_csys(o->from.origin.data(), o->from.x.data(), o->from.y.data(),
                              o->to.origin.data(), o->to.x.data(), o->to.y.data(), m.data());
        });
        if (skew != nullptr)
            refuse(std::string(skew) + "-x and " + skew + "-y are not perpendicular directions");
        return m;
    };
}

// ---- What all of them do ----

struct TransformOptions {
    std::string file;
    bool matrix_only = false;  // --matrix
    bool json = false;
};

void map_points(const Matrix& m, Points& points) {
    call_library([&] {
        for (int i = 0; i < points.count(); ++i) {
            double* const point = points.coordinates.data() + 3 * static_cast<std::size_t>(i);
            MC_apply_transform_to_point(m.data(), point, point);
        }
    });
}

/// Rows of numbers, in full: a file of points, or a matrix.
std::string rows_of(const double* numbers, std::size_t rows, std::size_t columns) {
    std::string text;
    for (std::size_t i = 0; i < rows * columns; ++i) {
        text += exact(numbers[i]);
        text += (i + 1) % columns == 0 ? '\n' : ' ';
    }
    return text;
}

Json json_rows(const double* numbers, std::size_t rows, std::size_t columns) {
    Json json = Json::array();
    for (std::size_t i = 0; i < rows; ++i)
        json.push_back(std::vector<double>(numbers + i * columns, numbers + (i + 1) * columns));
    return json;
}

ExitCode run(const std::string& name, const TransformOptions& options, const MatrixBuilder& build) {
    if (options.file.empty() != options.matrix_only)
        refuse(options.matrix_only ? "--matrix reads no FILE" : "FILE is required, or --matrix");
    const Matrix m = build();
    Json json = {{"transform", name}, {"matrix", json_rows(m.data(), 4, 4)}};
    std::string text;
    if (options.matrix_only) {
        text = rows_of(m.data(), 4, 4);
    } else {
        Points points = read_points(options.file, 3);
        map_points(m, points);
        text = rows_of(points.coordinates.data(), points.lines.size(), 3);
        if (options.json) {
            json["count"] = points.count();
            json["points"] = json_rows(points.coordinates.data(), points.lines.size(), 3);
        }
    }
    print(options.json ? json.dump(2) + '\n' : text);
    return ExitCode::success;
}

const char* const common_help = R"(
Units: points and the lengths in options are in one and the same unit, whichever it is;
angles are in degrees. A vector is given as X,Y,Z, without blanks.

Output: the points, one a line, in the order of FILE, with as many digits as it takes to
read the same numbers back; with --matrix the 4x4 matrix by rows, which takes a point p,
as a column (p, 1), to its image.

Exit codes: 0 success; 2 wrong usage, a direction without length among it; 3 FILE cannot
be read or is malformed; 4 the result cannot be written; 5 the library reported a failure,
or memory ran out.)";

void add_transform(CLI::App& transform, Commands& commands, const std::string& name,
                   const std::string& description, MatrixBuilder (*add_options)(CLI::App&),
                   const std::string& examples) {
    CLI::App* const command = transform.add_subcommand(name, description);
    const auto options = std::make_shared<TransformOptions>();
    command->add_option("FILE", options->file, "File of points, or - for the standard input");
    const MatrixBuilder build = add_options(*command);
    command->add_flag("--matrix", options->matrix_only, "Print the 4x4 matrix and no points");
    command->add_flag("--json", options->json, "Print matrix and points as JSON");
    command->footer("\nExamples:\n" + examples + '\n' + points_file_help + '\n' + common_help);
    commands.push_back({command, [=] { return run(name, *options, build); }});
}

}  // namespace

void add_transform_commands(CLI::App& program, Commands& commands) {
    CLI::App& transform = *program.add_subcommand(
        "transform", "Scale, rotate or mirror points, or carry them from frame to frame");
    transform.require_subcommand(1);
    add_transform(transform, commands, "scale", "Scales points about a centre", scaling,
                  "  ztmath transform scale --factors 25.4 inches.txt >millimetres.txt\n"
                  "  ztmath transform scale --centre 10,0,0 --factors 1,1,-1 points.txt\n");
    add_transform(transform, commands, "rotate", "Rotates points about an axis", rotation,
                  "  ztmath transform rotate --axis 0,0,1 --angle 30 points.txt\n"
                  "  ztmath transform rotate --point 5,5,0 --axis 1,1,0 --angle -90 --matrix\n");
    add_transform(transform, commands, "mirror", "Mirrors points in a plane", mirroring,
                  "  ztmath transform mirror --normal 1,0,0 left.txt >right.txt\n"
                  "  ztmath transform mirror --point 0,0,12.5 --normal 0,0,1 --json part.txt\n");
    add_transform(transform, commands, "motion", "Carries points from one frame to another", motion,
                  "  ztmath transform motion --to-origin 100,0,0 points.txt\n"
                  "  ztmath transform motion --from-x 0,1,0 --from-y 0,0,1 --to-origin 10,20,30 "
                  "part.txt |\n    ztmath fit plane -\n");
}

}  // namespace tool
