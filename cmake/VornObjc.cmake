# The Objective-C side: on macOS the system's, elsewhere GNUstep with g++. Where GNUstep or libffi is missing VORN_OBJC
# is off, and what is written in Objective-C++ is left out of the build. On macOS nothing would be left to load, so there
# a missing libffi ends the configuration.

set(VORN_OBJC OFF)
set(ffi_is_needed)
if(APPLE)
  set(ffi_is_needed REQUIRED)
endif()
pkg_check_modules(FFI ${ffi_is_needed} IMPORTED_TARGET libffi)
if(APPLE)
  set(VORN_OBJC ON)
  # Many names of the toolkit have newer ones here, which GNUstep does not know.
  set(objc_options -Wno-deprecated-declarations)
  set(objc_libraries "-framework Foundation")
elseif(FFI_FOUND AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # The compiler answers with the bare name when it has no such part.
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-prog-name=cc1objplus
    OUTPUT_VARIABLE objc_compiler OUTPUT_STRIP_TRAILING_WHITESPACE)
  find_path(GNUSTEP_HEADERS Foundation/Foundation.h PATH_SUFFIXES GNUstep)
  find_library(GNUSTEP_BASE gnustep-base)
  if(IS_ABSOLUTE "${objc_compiler}" AND GNUSTEP_HEADERS AND GNUSTEP_BASE)
    set(VORN_OBJC ON)
    set(objc_options -isystem ${GNUSTEP_HEADERS} -DGNUSTEP -DGNUSTEP_BASE_LIBRARY=1 -DGNU_RUNTIME=1
      -D_NATIVE_OBJC_EXCEPTIONS -fobjc-exceptions -fconstant-string-class=NSConstantString)
    # An object constructs and ends what it holds of C++, as it does elsewhere without being told.
    set(objcxx_options -fobjc-call-cxx-cdtors)
    set(objc_libraries ${GNUSTEP_BASE} objc)
  endif()
endif()

# The toolkit with windows. What draws with it is left out where there is none.
set(VORN_APPKIT OFF)
if(APPLE)
  set(VORN_APPKIT ${VORN_OBJC})
  set(appkit_libraries "-framework AppKit")
elseif(VORN_OBJC)
  find_library(GNUSTEP_GUI NAMES gnustep-gui)
  find_path(GNUSTEP_GUI_HEADERS AppKit/AppKit.h PATH_SUFFIXES GNUstep)
  if(GNUSTEP_GUI AND GNUSTEP_GUI_HEADERS)
    set(VORN_APPKIT ON)
    set(appkit_libraries ${GNUSTEP_GUI})
  endif()
endif()
message(STATUS "Objective-C edge: ${VORN_OBJC}, with windows: ${VORN_APPKIT}")
if(VORN_OBJC)
  if(NOT APPLE)
    # Another compiler would make code for another runtime.
    set(CMAKE_OBJC_COMPILER ${CMAKE_CXX_COMPILER})
  endif()
  enable_language(OBJC)
endif()

# vorn_objc_sources(TARGET SOURCES...): adds Objective-C++ sources, and Objective-C ones, to a target of this folder.
function(vorn_objc_sources target)
  set(plain ${ARGN})
  list(FILTER plain INCLUDE REGEX "\\.m$")
  set_source_files_properties(${plain} PROPERTIES COMPILE_OPTIONS "-std=gnu11;${objc_options}")
  # CMake names a language at each source, and the last one counts.
  set(plus ${ARGN})
  list(FILTER plus INCLUDE REGEX "\\.mm$")
  set_source_files_properties(${plus} PROPERTIES LANGUAGE CXX COMPILE_OPTIONS "-x;objective-c++;${objc_options};${objcxx_options}")
  target_sources(${target} PRIVATE ${ARGN})
  target_link_libraries(${target} PRIVATE ${objc_libraries})
endfunction()
