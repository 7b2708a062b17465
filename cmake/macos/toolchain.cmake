# Cross building the product for macOS on Linux; `./run check macos` fetches the compiler and builds the two presets
# that come here. VORN_MACOS_ARCH is arm64 or x86_64.
#
# The compiler brings the headers of C and of the C++ library. What it has not is here: include/ declares what we use
# of Foundation and AppKit, and libraries/ lists what we use of each library. A link fails over any other open symbol.

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VORN_MACOS_ARCH)
set(ours ${CMAKE_CURRENT_LIST_DIR})
get_filename_component(tools ${ours}/../../build/tools ABSOLUTE)
set(zig ${tools}/zig/zig)
set(oldest_system 11.0)

# Of the machine's headers only those of the libraries that we depend on: its C headers are another system's.
set(headers ${tools}/headers)
file(MAKE_DIRECTORY ${headers})
foreach(header unicode google re2 plist simdjson.h libxml2/libxml x86_64-linux-gnu/ffi.h x86_64-linux-gnu/ffitarget.h)
  get_filename_component(name ${header} NAME)
  file(CREATE_LINK /usr/include/${header} ${headers}/${name} SYMBOLIC)
endforeach()

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 20)
set(CMAKE_SYSTEM_PROCESSOR ${VORN_MACOS_ARCH})
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_OSX_SYSROOT "" CACHE PATH "")

string(REPLACE arm64 aarch64 target ${VORN_MACOS_ARCH}-macos.${oldest_system})
set(CMAKE_CXX_COMPILER ${zig} c++ -target ${target})
set(CMAKE_OBJC_COMPILER ${zig} cc -target ${target})
foreach(tool AR RANLIB INSTALL_NAME_TOOL)
  set(CMAKE_${tool} ${zig} CACHE FILEPATH "")
endforeach()
# The compiler would build a sanitizer's part into what is not optimised, and warns of a flag that it adds itself.
set(flags "-fno-sanitize=all -Wno-unused-command-line-argument -isystem ${ours}/include -idirafter ${headers}")
# The C++ library says what the system's own has only since a later version, unless it is told to be silent.
string(APPEND flags " -U_LIBCPP_HAS_NO_VENDOR_AVAILABILITY_ANNOTATIONS")
foreach(language CXX OBJC)
  set(CMAKE_${language}_FLAGS_INIT ${flags})
  # It keeps what it has compiled, and does so in a folder of the build.
  set(CMAKE_${language}_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    ZIG_GLOBAL_CACHE_DIR=${tools}/zig-cache ZIG_LOCAL_CACHE_DIR=${tools}/zig-cache)
  # Told, not tried out: a trial would link a program, for which this compiler first builds a C++ library.
  set(CMAKE_${language}_COMPILER_ID_RUN TRUE)
  set(CMAKE_${language}_COMPILER_ID Clang)
  set(CMAKE_${language}_COMPILER_VERSION 16.0.6)
  set(CMAKE_${language}_COMPILER_FRONTEND_VARIANT GNU)
  set(CMAKE_${language}_COMPILER_WORKS TRUE)
  set(CMAKE_${language}_ABI_COMPILED TRUE)
  set(CMAKE_${language}_STANDARD_COMPUTED_DEFAULT 17)
  set(CMAKE_${language}_EXTENSIONS_COMPUTED_DEFAULT ON)
endforeach()
set(CMAKE_SIZEOF_VOID_P 8)

set(CMAKE_LIBRARY_PATH ${ours}/libraries)
set(CMAKE_FIND_ROOT_PATH ${ours})
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_USER_MAKE_RULES_OVERRIDE ${ours}/rules.cmake)
