# Language level, warnings and sanitizers for every target of the project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Release, RelWithDebInfo or Debug" FORCE)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
                    -Wimplicit-fallthrough -Wextra-semi)
if(VENDARO_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()

if(VENDARO_SANITIZERS)
    add_compile_options(-fsanitize=${VENDARO_SANITIZERS} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VENDARO_SANITIZERS})
    if(VENDARO_SANITIZERS MATCHES undefined)
        add_compile_options(-fno-sanitize-recover=all)
    endif()
    if(VENDARO_SANITIZERS MATCHES implicit-conversion)
        # The standard library narrows on purpose.
        add_compile_options(-fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/not-ours.txt)
    endif()
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        # GCC 12 loses track of sizes among the sanitizers' checks and warns of overflows inside std::vector.
        add_compile_options(-Wno-stringop-overflow)
    endif()
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
