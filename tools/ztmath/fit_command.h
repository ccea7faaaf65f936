// ztmath fit: what its subcommands share. Each of them is a file of its own.
#pragma once

#include <string>

#include "command.h"
#include "fit.h"
#include "json.h"
#include "table.h"

namespace tool {

void add_fit_commands(CLI::App& program, Commands& commands);

void add_fit_plane_command(CLI::App& fit, Commands& commands);
void add_fit_line_command(CLI::App& fit, Commands& commands);
void add_fit_circle_command(CLI::App& fit, Commands& commands);
void add_fit_sphere_command(CLI::App& fit, Commands& commands);

struct FitOptions {
    std::string file;
    std::string unit_name = "mm";
    bool json = false;
    std::string svg;  // "" for none

    const Unit& unit() const { return unit_named(unit_name); }
    std::string source() const { return source_name(file); }
};

void add_fit_options(CLI::App& command, FitOptions& options);

/// The examples, units and exit codes below the help text of a fit.
std::string fit_help(const std::string& examples);

/// What was fitted, for messages.
struct FitKind {
    const char* name;  // "plane"
    int points_needed;
    const char* regular;    // the words for points that have a fit
    const char* collinear;  // what collinear points mean to it
};

/// The parts of a result that every fit has.
struct FitReport {
    const FitOptions& options;
    FitKind kind;
    const Points& points;
    Shape shape;

    /// Title and the count of the points.
    Table table() const;
    Json json() const;

    void add(Table& table, const char* label, const Deviations& distances) const;
    Json json(const Deviations& distances) const;

    /// Prints the result as the options want it.
    void print(const Table& table, const Json& json) const;

    /// Says on the standard error why there is no fit; the exit code.
    ExitCode conclude() const;

  private:
    std::string shape_words() const;
};

/// The components of a unit vector.
std::vector<std::string> direction_cells(const double* v, int dimension);

/// Coordinates, finely enough to tell places within the extent of the points, however far off.
std::vector<std::string> point_cells(const double* p, int dimension, double extent);

}  // namespace tool
