# How all code of this project is compiled and linked.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Werror)

# The message library checks the bounds of repeated fields by assertions, in the code that calls it. They hold in
# every build type, which CMake's own -DNDEBUG of release builds would end.
add_compile_options(-UNDEBUG)

add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH)

add_compile_options(-fstack-protector-strong)
add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack -Wl,--as-needed)
if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
    add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()

set(TAV_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize; empty for none")
if(TAV_SANITIZE)
    add_compile_options(-fsanitize=${TAV_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${TAV_SANITIZE})
endif()
