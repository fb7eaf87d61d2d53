# What every target of ours shares: warnings as errors, the include root, sanitizers by option.

set(TAMSEL_SANITIZE "" CACHE STRING "address (with undefined) or thread; empty for none")

add_library(tamsel_options INTERFACE)
target_compile_options(tamsel_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
target_include_directories(tamsel_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_definitions(tamsel_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)

if(TAMSEL_SANITIZE STREQUAL "address")
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
elseif(TAMSEL_SANITIZE STREQUAL "thread")
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
    # GCC says that the thread sanitizer does not model std::atomic_thread_fence; ours uses none.
    add_compile_options(-Wno-tsan)
elseif(NOT TAMSEL_SANITIZE STREQUAL "")
    message(FATAL_ERROR "TAMSEL_SANITIZE is 'address', 'thread' or empty, not '${TAMSEL_SANITIZE}'")
endif()

option(TAMSEL_PRECOMPILE "Parse the headers that nearly every file includes once for each build" ON)

# tamsel_precompile(<target> <name of a header in cmake/>): what was parsed is shared by all targets that name the same.
function(tamsel_precompile target header)
    if(NOT TAMSEL_PRECOMPILE)
        return()
    endif()
    set(shared tamsel_${header})
    if(NOT TARGET ${shared})
        file(WRITE "${CMAKE_BINARY_DIR}/precompiled/${header}.cpp" "")
        add_library(${shared} OBJECT "${CMAKE_BINARY_DIR}/precompiled/${header}.cpp")
        # No definition that some user of it does not have.
        target_link_libraries(${shared} PRIVATE tamsel_options Qt6::Core)
        if(header STREQUAL "PrecompiledTests")
            target_link_libraries(${shared} PRIVATE GTest::gmock)
        elseif(header STREQUAL "PrecompiledUiTests")
            target_link_libraries(${shared} PRIVATE Qt6::Quick Qt6::Test GTest::gtest)
        endif()
        target_include_directories(${shared} SYSTEM PRIVATE
            $<TARGET_PROPERTY:Qt6::QmlIntegration,INTERFACE_INCLUDE_DIRECTORIES>)
        target_precompile_headers(${shared} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/${header}.h")
        # ccache keeps the results of files that use one.
        target_compile_options(${shared} PRIVATE -fpch-preprocess)
    endif()
    target_precompile_headers(${target} REUSE_FROM ${shared})
    target_compile_options(${target} PRIVATE -fpch-preprocess)
endfunction()

# One folder, one library: tamsel_library(model SOURCES ... LINK ...)
function(tamsel_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(tamsel_${name} STATIC ${ARG_SOURCES})
    target_link_libraries(tamsel_${name} PUBLIC ${ARG_LINK} PRIVATE tamsel_options)
    target_include_directories(tamsel_${name} PUBLIC "${PROJECT_SOURCE_DIR}")
    tamsel_precompile(tamsel_${name} Precompiled)
endfunction()

# A folder whose screen models QML reads: the same, as a QML module named Tamsel.<uri>. QML_MODULES names the modules
# whose types its properties have.
function(tamsel_qml_library name uri)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;QML_MODULES" ${ARGN})
    set(CMAKE_AUTOMOC ON)
    qt_add_library(tamsel_${name} STATIC)
    qt_add_qml_module(tamsel_${name}
        URI Tamsel.${uri}
        VERSION 1.0
        RESOURCE_PREFIX /qt/qml
        # One import path for all modules: the QML compiler and qmllint look the types up there.
        OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/qml/Tamsel/${uri}"
        DEPENDENCIES ${ARG_QML_MODULES}
        SOURCES ${ARG_SOURCES})
    target_link_libraries(tamsel_${name} PUBLIC ${ARG_LINK} PRIVATE tamsel_options)
    target_include_directories(tamsel_${name} PUBLIC "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
    tamsel_precompile(tamsel_${name} Precompiled)
endfunction()

# One folder of tests, one program: tamsel_test(model SOURCES ... LINK ... [LABELS ...])
function(tamsel_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;LABELS" ${ARGN})
    add_executable(test_${name} ${ARG_SOURCES} "${PROJECT_SOURCE_DIR}/tests/support/main.cpp")
    target_link_libraries(test_${name} PRIVATE ${ARG_LINK} tamsel_test_support tamsel_options GTest::gmock)
    tamsel_precompile(test_${name} PrecompiledTests)
    add_test(NAME ${name} COMMAND test_${name})
    set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT 300)
endfunction()
