# Compiles with clang against GCC's mingw libraries. Linking goes through the GCC driver, because
# Debian's clang does not find GCC's thread-enabled libgcc by itself.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(qlb_gcc /usr/lib/gcc/x86_64-w64-mingw32/12-posix)
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -isystem ${qlb_gcc}/include/c++ -isystem ${qlb_gcc}/include/c++/x86_64-w64-mingw32 -isystem ${qlb_gcc}/include/c++/backward")
set(CMAKE_PROJECT_INCLUDE ${CMAKE_CURRENT_LIST_DIR}/link-with-gcc.cmake)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
