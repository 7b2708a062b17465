# Where the tests keep their worlds. What a world stores is brought to the disk at once, which takes longer than all else;
# in memory there is no disk. There has to be room for the programs of a few worlds, and leave to start them; the program
# for the trial is one that no shell has built in, for else there is no file of it.
set(VORN_TEST_ENVIRONMENT)
execute_process(ERROR_QUIET RESULT_VARIABLE is_unfit COMMAND sh -c [=[
  set -e
  [ "$(df --output=avail --block-size=1M /dev/shm | tail -n 1)" -ge 1024 ]
  program=$(mktemp -p /dev/shm)
  trap 'rm -f "$program"' EXIT
  cp "$(command -v env)" "$program"
  chmod +x "$program"
  "$program" true
]=])
if(NOT is_unfit)
  set(VORN_TEST_ENVIRONMENT TMPDIR=/dev/shm)
endif()

# What takes long starts first, so that nobody waits for it alone at the end; what takes half of the time of all tests,
# most of it waiting, before anything else, so that the others calculate meanwhile.
set(VORN_LONG_TEST 10)
set(VORN_LONGEST_TEST 20)

# vorn_world_test(NAME SECONDS PROPERTIES...): what holds for the test of that name, which keeps a world and hangs when
# it takes longer.
function(vorn_world_test name seconds)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${seconds} ENVIRONMENT "${VORN_TEST_ENVIRONMENT}" ${ARGN})
endfunction()
