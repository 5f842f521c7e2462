# How all code of this project is compiled and linked.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

add_compile_options(-Wall -Wextra -Wpedantic)

# The message library checks the bounds of repeated fields by assertions, in the code that calls it. They hold in
# every build type, which CMake's own -DNDEBUG of release builds would end.
add_compile_options(-UNDEBUG)

add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH)

# What the builder's own flags say of a defence holds where it is more than this.
add_compile_options(-fstack-clash-protection)
if(NOT CMAKE_CXX_FLAGS MATCHES "-fstack-protector-all")
    add_compile_options(-fstack-protector-strong)
endif()
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    add_compile_options(-fcf-protection)
elseif(CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64" AND NOT CMAKE_CXX_FLAGS MATCHES "-mbranch-protection=standard")
    add_compile_options(-mbranch-protection=standard)
endif()
add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack -Wl,--as-needed)
if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug" AND NOT CMAKE_CXX_FLAGS MATCHES "-O0")
    # The highest level there is: what the builder may have asked for is never more. Older compilers warn of 3.
    set(fortifyLevel 3)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 12)
        set(fortifyLevel 2)
    endif()
    add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${fortifyLevel})
endif()

set(TAV_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize; empty for none")
if(TAV_SANITIZE)
    add_compile_options(-fsanitize=${TAV_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${TAV_SANITIZE})
    if(TAV_SANITIZE MATCHES "undefined")
        # The rows of the pages' lists are packed to one byte, so their texts stand misaligned wherever they are used;
        # and all units of a program share the inline functions that use them.
        add_compile_options(-fno-sanitize=alignment)
    endif()
endif()
