#include "roots_command.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>

#include "json.h"
#include "number.h"
#include "output.h"
#include "polynomial.h"
#include "table.h"
#include "text_file.h"

namespace tool {

namespace {

constexpr int root_digits = 16;
constexpr int residual_digits = 2;

struct RootsOptions {
    std::vector<std::string> coefficients;
    std::string file;  // "" for coefficients on the command line
    bool laguerre = false;
    bool json = false;

    Method method() const { return laguerre ? Method::laguerre : Method::closed_form; }
};

const char* const roots_help = R"(
Examples:
  ztmath roots 6 -5 1                 6 - 5 x + x^2: 2 and 3
  ztmath roots 4,0,-5,0,1 --json
  ztmath roots --laguerre -- -.5 1 2 8
  echo '1e-8 -1 1e4' | ztmath roots --file -

Coefficients stand by ascending power, the constant first, up to degree 4; blanks, commas and
semicolons separate them. A file may spread them over lines; what follows #, % or // is
skipped. After -- everything is a coefficient: -.5 needs that, -5 does not.

Solver: the closed form of the degree, in which errors are relative to the largest root; or,
with --laguerre, an iteration that is accurate for the size of each root. Multiple roots are
listed as often. Coefficients up to 1e-10 count as 0 at the front; so does a last one up to
the degree's power of 1e-10 (the session's fine number tolerance), and odd ones up to 1e-10
where nothing else is odd in degree 4. Scale the polynomial to suit.

Residual: the value of the polynomial at the root, and the same beside the sum of the terms'
absolute values there.

Exit codes: 0 success, also without a real root; 1 the polynomial is a constant; 2 wrong
usage; 3 FILE cannot be read or is malformed; 4 the result cannot be written; 5 the library
reported a failure, or memory ran out.)";

std::string method_words(const RootsOptions& options, int degree) {
    return (options.laguerre ? "Laguerre's iteration, degree " : "closed form, degree ") +
           std::to_string(degree);
}

Table roots_table(const RootsOptions& options, const Polynomial& polynomial, const RootList& list) {
    Table table("Real roots of " + polynomial.str() + '\n');
    table.text("method", method_words(options, list.degree));
    table.text("real roots", list.roots.empty() ? "none" : std::to_string(list.roots.size()));
    if (list.roots.empty()) return table;
    table.gap();
    table.row("", {"root", "residual", "relative"});
    int number = 0;
    for (const Root& root : list.roots)
        table.row("x" + std::to_string(++number),
                  {rounded(root.x, root_digits), rounded(root.residual, residual_digits),
                   rounded(root.relative, residual_digits)});
    return table;
}

Json roots_json(const RootsOptions& options, const Polynomial& polynomial, const RootList& list) {
    Json json{{"coefficients", polynomial.coefficients},
              {"degree", list.degree},
              {"method", options.laguerre ? "laguerre" : "closed form"},
              {"tolerance", coefficient_tolerance},
              {"roots", Json::array()}};
    for (const Root& root : list.roots)
        json["roots"].push_back(
            {{"root", root.x}, {"residual", root.residual}, {"relative", root.relative}});
    return json;
}

Polynomial given_polynomial(const RootsOptions& options) {
    return options.file.empty()
               ? parse_polynomial(options.coefficients)
               : parse_polynomial(read_text(options.file), source_name(options.file));
}

ExitCode run(const RootsOptions& options) {
    const Polynomial polynomial = given_polynomial(options);
    const RootList list = real_roots(polynomial, options.method());
    if (list.degree < 1) {
        std::fprintf(stderr, "ztmath: %s is a constant\n", polynomial.str().c_str());
        return ExitCode::degenerate;
    }
    print(options.json ? roots_json(options, polynomial, list).dump(2) + '\n'
                       : roots_table(options, polynomial, list).str());
    return ExitCode::success;
}

}  // namespace

void add_roots_command(CLI::App& program, Commands& commands) {
    const auto options = std::make_shared<RootsOptions>();
    CLI::App* command = program.add_subcommand("roots", "Find the real roots of a polynomial");
    CLI::Option* coefficients =
        command->add_option("COEFFICIENT", options->coefficients, "By ascending power, up to five")
            ->type_name("");
    command->add_option("--file", options->file, "Take the coefficients from a file, - for stdin")
        ->type_name("FILE")
        ->excludes(coefficients);
    command->add_flag("--laguerre", options->laguerre, "Iterate instead of the closed form");
    command->add_flag("--json", options->json, "Print the result as JSON");
    command->footer(roots_help);
    commands.push_back({command, [options] { return run(*options); }});
}

}  // namespace tool
