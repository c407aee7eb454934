# One call per subsystem declares its files and what it may use.

add_library(wmoutlook_flags INTERFACE)
target_compile_options(wmoutlook_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Werror
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)  # gcc 12 has false alarms in the insert and replace of std::string
target_include_directories(wmoutlook_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(WMOUTLOOK_SANITIZE)
    target_compile_options(wmoutlook_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(wmoutlook_flags INTERFACE -fsanitize=address,undefined)
endif()
if(WMOUTLOOK_FUZZ)
    target_compile_options(wmoutlook_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    target_link_options(wmoutlook_flags INTERFACE -fsanitize=address,undefined)
endif()

# subsystem(NAME FILES a.cpp ... [USES other ...] [LIBRARIES third-party ...])
function(subsystem name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "FILES;USES;LIBRARIES")
    add_library(${name} STATIC ${arg_FILES})
    target_link_libraries(${name} PUBLIC wmoutlook_flags ${arg_USES} PRIVATE ${arg_LIBRARIES})
endfunction()

# test_program(NAME FILES a_test.cpp ... [USES ...] [LABELS ...]): a GoogleTest program; each of its tests is a CTest test
function(test_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "FILES;USES;LABELS")
    add_executable(${name} ${arg_FILES})
    target_link_libraries(${name} PRIVATE wmoutlook_flags ${arg_USES} GTest::gtest_main)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    set(properties TIMEOUT 300)
    if(arg_LABELS)
        list(APPEND properties LABELS "${arg_LABELS}")
    endif()
    gtest_discover_tests(${name} NO_PRETTY_VALUES PROPERTIES ${properties})
endfunction()
