# vorn_room(NAME FOLDER DEPENDS...): the room's own folder, without what lies below it, as one library.
#
# A room without sources yet is a library of its headers alone.
function(vorn_room name folder)
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC ${ARGN})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE ${ARGN})
  endif()
endfunction()
