# orvane_room(logic A.h A.cpp ... windows B.h B.cpp ...): the furniture of one room (a folder of src/),
# each file named, in the library it belongs to.
function(orvane_room)
  cmake_parse_arguments(ROOM "" "" "logic;windows" ${ARGN})
  foreach(file IN LISTS ROOM_logic)
    target_sources(orvane_logic PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${file})
  endforeach()
  if(TARGET orvane_windows)
    foreach(file IN LISTS ROOM_windows)
      target_sources(orvane_windows PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${file})
    endforeach()
  endif()
endfunction()
