# Fails unless README quotes the examples as they are.
file(READ ${README} readme)
foreach(example ${EXAMPLES}/fit_plane.c ${EXAMPLES}/fit_plane.cpp)
  file(READ ${example} text)
  string(FIND "${readme}" "${text}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "${README} does not quote ${example} as it is")
  endif()
endforeach()
