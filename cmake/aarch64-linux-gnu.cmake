# Cross build for the head unit's 64-bit ARM Linux, against Debian's multiarch
# :arm64 packages installed beside the build machine's own.
#   cmake -DCMAKE_TOOLCHAIN_FILE=cmake/aarch64-linux-gnu.cmake -DNILO_THEMEGEN_EXECUTABLE=...
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

# Qt's CMake files of the target; their tools (moc, uic, rcc, qdbusxml2cpp,
# lrelease) are the build machine's, from the arch-independent tool packages.
set(CMAKE_PREFIX_PATH /usr/lib/aarch64-linux-gnu/cmake)
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/aarch64-linux-gnu/pkgconfig:/usr/share/pkgconfig)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)

# Target programs (tests among them) run under user-mode emulation.
find_program(QEMU_AARCH64 NAMES qemu-aarch64-static qemu-aarch64)
if(QEMU_AARCH64)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${QEMU_AARCH64})
endif()
