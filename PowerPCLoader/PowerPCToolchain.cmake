# 32-bit big-endian PowerPC Linux, built by clang against Debian's cross
# libraries (libc6-dev-powerpc-cross, libstdc++-12-dev-powerpc-cross) and
# linked by the cross binutils. Debian's g++-powerpc-linux-gnu would do as
# well, but it cannot be installed beside g++-multilib, which the default
# build needs.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR powerpc)
set(QUORL_PPC_TRIPLE powerpc-linux-gnu)
set(QUORL_PPC_SYSROOT /usr/${QUORL_PPC_TRIPLE})
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET ${QUORL_PPC_TRIPLE})
set(CMAKE_CXX_COMPILER_TARGET ${QUORL_PPC_TRIPLE})
set(CMAKE_AR /usr/bin/${QUORL_PPC_TRIPLE}-ar CACHE FILEPATH "")
set(CMAKE_RANLIB /usr/bin/${QUORL_PPC_TRIPLE}-ranlib CACHE FILEPATH "")
set(CMAKE_OBJCOPY /usr/bin/${QUORL_PPC_TRIPLE}-objcopy CACHE FILEPATH "")
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-static -B${QUORL_PPC_SYSROOT}/lib -L${QUORL_PPC_SYSROOT}/lib")
set(CMAKE_FIND_ROOT_PATH ${QUORL_PPC_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
