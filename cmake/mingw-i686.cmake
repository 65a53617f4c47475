# Cross-build for 32-bit Windows with mingw-w64:
#   cmake -G Ninja -B build-win32 -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-i686.cmake
# The posix thread model gives std::mutex on this toolchain.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
# scripts/build-win32.sh cross-builds a static libcrypto into this prefix.
if(NOT QVA_MINGW_OPENSSL)
  set(QVA_MINGW_OPENSSL /opt/qva-mingw-openssl)
endif()
set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32 ${QVA_MINGW_OPENSSL})
set(OPENSSL_USE_STATIC_LIBS ON)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
