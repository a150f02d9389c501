# A toolchain file for 32-bit ARM Linux with hardware floating point: Debian's
# cross compiler, and qemu's user-mode emulator to run programs.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
find_program(QEMU_ARM qemu-arm REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${QEMU_ARM} -L /usr/arm-linux-gnueabihf)
