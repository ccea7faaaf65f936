# What every target of the project is compiled with.

# Results are the same bits from every compiler, at every optimisation level and on every processor: a
# fused multiply-add would round once where the formula rounds twice, and turn exact zeros of
# determinants into dust. GCC 12 still fuses complex products, where the processor can.
set(ZTMATH_ARITHMETIC -ffp-contract=off)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  list(APPEND ZTMATH_ARITHMETIC -mno-fma)
endif()

add_library(ztmath_options INTERFACE)
target_compile_options(ztmath_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wundef
  $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual>
  $<$<BOOL:${ZTMATH_WERROR}>:-Werror>
  ${ZTMATH_ARITHMETIC})

if(ZTMATH_SANITIZE)
  target_compile_options(ztmath_options INTERFACE
    -fsanitize=${ZTMATH_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ztmath_options INTERFACE -fsanitize=${ZTMATH_SANITIZE})
endif()

# Programs around the library, which spend their time in it: they need not wait for the optimiser.
add_library(ztmath_quick_build INTERFACE)
if(ZTMATH_SANITIZE)
  target_compile_options(ztmath_quick_build INTERFACE -O0)
else()
  target_compile_options(ztmath_quick_build INTERFACE $<$<CONFIG:Release>:-O1>)
endif()
