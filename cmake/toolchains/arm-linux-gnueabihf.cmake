# Compiles for the target, 32-bit ARM Linux with hardware floating point, on a Debian of another architecture.
# The headers and libraries of the target come from a sysroot, which armhf-sysroot makes.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
# The compiler notes where it passes arguments otherwise than its versions before 7 did. All here is made by one version.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)

if(DEFINED ENV{BT_ARMHF_SYSROOT})
  set(CMAKE_SYSROOT $ENV{BT_ARMHF_SYSROOT})
else()
  set(CMAKE_SYSROOT /var/tmp/libbt-armhf-sysroot)
endif()
if(NOT EXISTS ${CMAKE_SYSROOT}/lib/ld-linux-armhf.so.3)
  message(FATAL_ERROR "There is no sysroot in ${CMAKE_SYSROOT}: cmake/toolchains/armhf-sysroot makes it.")
endif()

# Libraries and headers are the target's, programs are this machine's.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR}
    ${CMAKE_SYSROOT}/usr/lib/arm-linux-gnueabihf/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig)
unset(ENV{PKG_CONFIG_PATH})
