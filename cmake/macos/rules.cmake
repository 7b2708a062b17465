# How the cross build makes its libraries. The compiler's own linker makes no bundles, so lld does. CMake asks a Mac for
# its version, and where there is none takes it for one that knows no @rpath.
set(CMAKE_SHARED_LIBRARY_RUNTIME_C_FLAG "-Wl,-rpath,")
set(link "clang++ --target=${VORN_MACOS_ARCH}-apple-macos${oldest_system} -fuse-ld=lld -nostdlib -F${ours}/libraries")
set(system_libraries "-L${ours}/libraries -lc++ -lobjc ${tools}/zig/lib/libc/darwin/libSystem.11.tbd")
foreach(language CXX OBJC)
  set(CMAKE_${language}_ARCHIVE_CREATE "<CMAKE_AR> ar qc <TARGET> <OBJECTS>")
  set(CMAKE_${language}_ARCHIVE_APPEND "<CMAKE_AR> ar q <TARGET> <OBJECTS>")
  set(CMAKE_${language}_ARCHIVE_FINISH "<CMAKE_RANLIB> ranlib <TARGET>")
  string(CONCAT CMAKE_${language}_CREATE_SHARED_LIBRARY
    "${link} -dynamiclib <LINK_FLAGS> -o <TARGET> <SONAME_FLAG> <TARGET_INSTALLNAME_DIR><TARGET_SONAME> "
    "<OBJECTS> <LINK_LIBRARIES> ${system_libraries}")
  set(CMAKE_${language}_CREATE_SHARED_MODULE
    "${link} -bundle <LINK_FLAGS> -o <TARGET> <OBJECTS> <LINK_LIBRARIES> ${system_libraries}")
endforeach()
