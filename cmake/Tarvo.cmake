# tarvo_biblioteca(NAME SOURCES...): one library per folder. Headers are included from the
# root of the tree ("data/Moeda.h"), so that an include says where the thing lives.
function(tarvo_biblioteca nome)
    add_library(tarvo_${nome} STATIC ${ARGN})
    target_include_directories(tarvo_${nome} PUBLIC ${PROJECT_SOURCE_DIR})
endfunction()

# tarvo_teste(NAME LIBRARIES SOURCES...): one test program per folder under tests/.
function(tarvo_teste nome bibliotecas)
    add_executable(teste_${nome} ${ARGN})
    target_link_libraries(teste_${nome} PRIVATE ${bibliotecas} GTest::gmock GTest::gtest_main)
    target_include_directories(teste_${nome} PRIVATE ${PROJECT_SOURCE_DIR})
    add_test(NAME ${nome} COMMAND teste_${nome})
    set_tests_properties(${nome} PROPERTIES ENVIRONMENT
        "LC_ALL=C.UTF-8;TZ=UTC;ASAN_OPTIONS=detect_leaks=1")
endfunction()
