#include "facet/fill_log.h"

#include <cstddef>
#include <cstdio>

namespace ztmath {

namespace {

constexpr char preamble[] =
    "/dev,vect,0\n"
    "/prep7\n"
    "immed,off\n"
    "/triad,off\n"
    "et,1,93\n"
    "et,2,3\n"
    "et,3,92\n"
    "et,4,63\n"
    "et,5,45\n"
    "et,6,95\n"
    "et,7,19\n"
    "/gopr\n";

constexpr char closing[] =
    "/COM COMPLETED READING OF FEA MODEL\n"
    "eplot\n"
    "immed,on\n"
    "/gopr\n";

constexpr char end_of_block[] = "     -1\n";

void write_nodes(std::FILE* file, int n, const double* points) {
    std::fputs("NBLOCK,6,SOLID\n(3i8,6e16.9)\n", file);
    for (std::ptrdiff_t i = 0; i < n; ++i)
        std::fprintf(file, "%8d%8d%8d%-16.6e%-16.6e%-16.6e\n", static_cast<int>(i) + 1, 0, 0,
                     points[2 * i], points[2 * i + 1], 0.0);
    std::fputs(end_of_block, file);
}

void write_elements(std::FILE* file, int count, const PTF_triangle_t* triangles) {
    std::fputs("EBLOCK,19,SOLID\n(19i7)\n", file);
    for (int t = 0; t < count; ++t) {
        const int fields[19] = {1,
                                4,
                                1,
                                1,
                                0,
                                0,
                                0,
                                0,
                                8,
                                0,
                                t + 1,
                                triangles[t].a + 1,
                                triangles[t].b + 1,
                                triangles[t].c + 1};
        for (const int field : fields)
            std::fprintf(file, "%7d", field);
        std::fputc('\n', file);
    }
    std::fputs(end_of_block, file);
}

void write_boundary(std::FILE* file, int n) {
    for (int i = 0; i < n; ++i)
        std::fprintf(file, "type,2\ne,%d,%d\n", i + 1, i + 1 < n ? i + 2 : 1);
}

}  // namespace

void write_ansys_log(int n, const double* points, int triangle_count,
                     const PTF_triangle_t* triangles) {
    std::FILE* const file = std::fopen("ansysptf.log", "w");
    if (file == nullptr) return;
    std::fputs(preamble, file);
    write_nodes(file, n, points);
    write_elements(file, triangle_count, triangles);
    write_boundary(file, n);
    std::fputs(closing, file);
    std::fclose(file);
}

}  // namespace ztmath
