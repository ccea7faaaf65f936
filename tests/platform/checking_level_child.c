/* Succeeds if the checking level with which the platform library starts is the first argument. */
#include <stdlib.h>

#include "syss/syss.h"

int main(int argc, char** argv) {
    return argc == 2 && MACH__checking_level == (int)strtol(argv[1], NULL, 10) ? EXIT_SUCCESS
                                                                               : EXIT_FAILURE;
}
