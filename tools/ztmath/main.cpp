#include "program.h"

int main(int argc, char** argv) {
    return tool::run_program(argc, argv);
}
