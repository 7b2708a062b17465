# The bundle does its work from any folder, with nothing left of what was built: in a host that shares our library with
# it, and in one that has nothing of ours. While this runs the built bundle is out of reach, so it runs alone.
set(away ${BUNDLE}.away)
set(copy ${FOLDER}/vOutlookPlugin.bundle)
if(EXISTS ${away} AND NOT EXISTS ${BUNDLE})
  file(RENAME ${away} ${BUNDLE})
endif()
file(REMOVE_RECURSE ${FOLDER} ${away})
file(COPY ${BUNDLE} DESTINATION ${FOLDER})

file(RENAME ${BUNDLE} ${away})
execute_process(COMMAND ${PROGRAM} hooks --runtime objc --bundle ${copy}
  OUTPUT_VARIABLE told ERROR_VARIABLE told RESULT_VARIABLE code)
find_program(PYTHON python3 REQUIRED)
execute_process(
  COMMAND ${CMAKE_COMMAND} -E env HOME=${FOLDER} ${PYTHON} -c
    "import ctypes, sys; ctypes.CDLL(sys.argv[1]).vOutlookPluginAnswer; print(open('/proc/self/maps').read())"
    ${copy}/Contents/MacOS/vOutlookPlugin
  OUTPUT_VARIABLE loaded ERROR_VARIABLE complaints RESULT_VARIABLE bare_code)
file(RENAME ${away} ${BUNDLE})

if(NOT code EQUAL 0 OR NOT told MATCHES "\n([0-9]+) of ([0-9]+) hooks stand" OR CMAKE_MATCH_1 EQUAL 0)
  message(FATAL_ERROR "exit ${code}\n${told}")
endif()
if(NOT bare_code EQUAL 0 OR NOT loaded MATCHES "${FOLDER}[^\n]*/Frameworks/libvorn_platform")
  message(FATAL_ERROR "exit ${bare_code}\n${complaints}\n${loaded}")
endif()
string(REPLACE ${FOLDER} "" others "${loaded}")
if(others MATCHES "[^\n]*${BUILT}/[^\n]*")
  message(FATAL_ERROR "loaded from where it was built: ${CMAKE_MATCH_0}")
endif()
file(REMOVE_RECURSE ${FOLDER})
