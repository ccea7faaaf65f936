# ztmath_precompile(TARGET HEADER...): has the headers read once for all sources of the target; not
# where the compiler is launched by another program, which may be a cache that does without.
function(ztmath_precompile target)
  if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()
