# The target: 32-bit x86 Linux, built by the multilib compilers of an amd64 machine.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_Fortran_COMPILER gfortran)
foreach(language C CXX Fortran)
    set(CMAKE_${language}_FLAGS_INIT -m32)
endforeach()
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
# The amd64 kernel runs what is built here.
set(CMAKE_CROSSCOMPILING OFF)
