# vorn_room(NAME FOLDER DEPENDS...): the room's own folder, without what lies below it, as one library.
function(vorn_room name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC ${ARGN})
endfunction()
