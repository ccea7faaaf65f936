#include "arc_report.h"

#include "arc_picture.h"
#include "json.h"
#include "number.h"
#include "output.h"
#include "table.h"

namespace tool {

namespace {

constexpr int digits = 9;

/// Circles have a radius in the third column, what meets elsewhere has a parameter.
bool has_parameters(const ArcReport& report) {
    return !report.found.empty() && !report.found.front().shape.is_round();
}

std::string count_words(const ArcReport& report) {
    const std::string count = report.found.empty() ? "none" : std::to_string(report.found.size());
    return report.remark.empty() ? count : count + ": " + report.remark;
}

void add_rows(Table& table, const ArcFinding& finding) {
    std::vector<double> numbers{finding.shape.place[0], finding.shape.place[1],
                                finding.shape.radius};
    for (const Contact& contact : finding.contacts)
        numbers.insert(numbers.end(), contact.at.begin(), contact.at.end());
    const std::vector<std::string> cells = aligned(numbers, digits);
    if (finding.shape.kind == Entity::circle)
        table.row(finding.shape.name, {cells[0], cells[1], cells[2]});
    else
        table.row(finding.shape.name, {});
    std::size_t next = 3;
    for (const Contact& contact : finding.contacts) {
        table.row("  " + contact.with,
                  {cells[next], cells[next + 1],
                   contact.parameter ? rounded(*contact.parameter, digits) : "",
                   rounded(contact.residual, 2)},
                  contact.how);
        next += 2;
    }
}

std::string table_of(const ArcReport& report, const Given& given, const Tolerances& tols) {
    Table table(report.title + '\n');
    table.text("given", given.words());
    table.text("tolerance", rounded(tols.distance(), 2));
    table.text(report.noun, count_words(report));
    if (report.found.empty()) return table.str();
    table.gap();
    table.row("", {"x", "y", has_parameters(report) ? "parameter" : "radius", "residual"});
    for (const ArcFinding& finding : report.found) {
        if (&finding != &report.found.front()) table.gap();
        add_rows(table, finding);
    }
    return table.str();
}

Json given_json(const Given& given) {
    Json list = Json::array();
    for (const Entity& e : given.entities) {
        Json entity{{"name", e.name}, {e.is_round() ? "centre" : "point", e.place}};
        if (e.is_round()) entity["radius"] = e.radius;
        if (e.kind == Entity::line) entity["direction"] = e.direction;
        if (e.kind == Entity::segment) entity["end"] = e.end();
        if (e.kind == Entity::arc) entity.update({{"start", e.start}, {"angle", e.covered}});
        list.push_back(std::move(entity));
    }
    if (given.radius) list.push_back({{"name", "radius"}, {"radius", *given.radius}});
    if (given.at) list.push_back({{"name", "at"}, {"point", *given.at}});
    if (given.angle) list.push_back({{"name", "angle"}, {"angle", *given.angle}});
    return list;
}

Json contact_json(const Contact& contact) {
    Json json{{"with", contact.with}, {"how", contact.how}, {"at", contact.at}};
    if (contact.parameter) json["parameter"] = *contact.parameter;
    json["residual"] = contact.residual;
    return json;
}

Json finding_json(const ArcFinding& finding) {
    const Entity& shape = finding.shape;
    Json json{{"name", shape.name}, {shape.is_round() ? "centre" : "point", shape.place}};
    if (shape.is_round()) json["radius"] = shape.radius;
    if (shape.kind == Entity::line) json["direction"] = shape.direction;
    json["contacts"] = Json::array();
    for (const Contact& contact : finding.contacts)
        json["contacts"].push_back(contact_json(contact));
    return json;
}

Json json_of(const ArcReport& report, const Given& given, const Tolerances& tols) {
    Json json{{"title", report.title},
              {"given", given_json(given)},
              {"tolerance", tols.distance()},
              {"remark", report.remark},
              {report.noun, Json::array()}};
    for (const ArcFinding& finding : report.found)
        json[report.noun].push_back(finding_json(finding));
    return json;
}

std::string legend_words(const Entity& shape) {
    if (shape.kind == Entity::line) return shape.name;
    if (shape.kind == Entity::circle) return shape.name + ": radius " + rounded(shape.radius, 5);
    const std::vector<std::string> cells = aligned({shape.place[0], shape.place[1]}, 5);
    return shape.name + ": (" + cells[0] + ", " + cells[1] + ")";
}

std::vector<ArcFound> pictured(const ArcReport& report) {
    std::vector<ArcFound> found;
    for (const ArcFinding& finding : report.found) {
        std::vector<Vec2> marks;
        for (const Contact& contact : finding.contacts)
            if (contact.with != "radius") marks.push_back(contact.at);
        found.push_back({finding.shape, legend_words(finding.shape), std::move(marks)});
    }
    return found;
}

}  // namespace

void conclude(const ArcReport& report, const ArcsOptions& options, const Given& given,
              const Tolerances& tols) {
    print(options.json ? json_of(report, given, tols).dump(2) + '\n'
                       : table_of(report, given, tols));
    if (!options.svg.empty())
        write_file(options.svg, arc_picture(report.title, given, pictured(report)));
}

}  // namespace tool
