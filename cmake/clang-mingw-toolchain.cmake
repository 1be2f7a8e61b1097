# The Windows program built by clang and lld (packages clang-14, lld-14), with the headers and libraries of mingw-w64.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-toolchain.cmake)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
  OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET libgcc PARENT_PATH gcc)

set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_C_COMPILER_TARGET ${TOOLCHAIN_PREFIX})
set(CMAKE_CXX_COMPILER_TARGET ${TOOLCHAIN_PREFIX})
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-nostdinc++>
  "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-isystem ${gcc}/include/c++ -isystem ${gcc}/include/c++/${TOOLCHAIN_PREFIX}>")

# clang does not know that this libstdc++ needs winpthread, so all libraries are named. lld takes them in any order.
add_link_options(-fuse-ld=lld -L${gcc} -L/usr/${TOOLCHAIN_PREFIX}/lib $<$<LINK_LANGUAGE:CXX>:-nodefaultlibs>)
set(CMAKE_CXX_STANDARD_LIBRARIES "-lstdc++ -lgcc_eh -lgcc -lwinpthread -lmoldname -lmingwex -lmsvcrt -lmingw32 -lssp \
-lkernel32 -luser32 -lgdi32 -lshell32 -lole32 -loleaut32 -luuid -ladvapi32")
